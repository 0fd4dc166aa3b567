#include "record/column_texts.h"

#include <array>

namespace dralo::record {
namespace {

using Name = std::string_view;

constexpr std::array kTemplates = {
    Name("#ID#"),
    Name("<b>#Company#</b>, #City#"),
    Name("<a href=\"#DRALOPOSTBACKURL#\">#ID#</a>"),
    Name("<a href='#DRALOFORMURL#'>#Company#</a>"),
    Name("<a href=\"#draloformurl#&x=1\">#Name#</a>"),
    Name("#Nobody#"),
    Name("#ID"),
    Name("plain text & more"),
    Name("##"),
    Name("#Since# #Credit# #Active# #Note#"),
    Name("|ID| |Item|"),
    Name("# id #"),
    Name(""),
};

constexpr std::array kFunctions = {
    Name("FORMATCURRENCY"),
    Name("FORMATCURRENCY,0"),
    Name("FORMATCURRENCY,2,-1,-1,-1"),
    Name("FORMATCURRENCY,-1,0,0,0"),
    Name("FORMATNUMBER,2"),
    Name("FORMATNUMBER"),
    Name("FORMATNUMBER,3,0,-1,0"),
    Name("FORMATNUMBER,x"),
    Name("FORMATNUMBER,256"),
    Name("FORMATPERCENT,1"),
    Name("FORMATPERCENT"),
    Name("FORMATDATETIME"),
    Name("FORMATDATETIME,0"),
    Name("FORMATDATETIME,1"),
    Name("FORMATDATETIME,2"),
    Name("FORMATDATETIME,3"),
    Name("FORMATDATETIME,4"),
    Name("FORMATDATETIME,5"),
    Name("DATEADD,yyyy,1"),
    Name("DATEADD,m,-13"),
    Name("DATEADD,n,90"),
    Name("DATEADD,ww,2"),
    Name("DATEADD,z,1"),
    Name("DATEADD,d"),
    Name("DATEADD,yyyy,999999"),
    Name("DATEPART,yyyy"),
    Name("DATEPART,w,2"),
    Name("DATEPART,ww,0,0"),
    Name("DATEPART,ww,9"),
    Name("DATEPART"),
    Name("FORMAT,0.00"),
    Name("FORMAT,0.0;(0.0);none"),
    Name("FORMAT|#,##0.00"),
    Name("FORMAT,Currency"),
    Name("FORMAT,Percent"),
    Name("FORMAT,Scientific"),
    Name("FORMAT,Yes/No"),
    Name("FORMAT,dd/mm/yyyy"),
    Name("FORMAT,dddd d mmmm yyyy"),
    Name("FORMAT,hh:nn:ss AM/PM"),
    Name("FORMAT,Long Date"),
    Name("FORMAT,@@-@@"),
    Name("FORMAT,!&&&>"),
    Name("FORMAT,<"),
    Name("FORMAT,ww,8,1"),
    Name("FORMAT"),
    Name("REPLACE,o,0"),
    Name("REPLACE,L,-,5"),
    Name("REPLACE,,x"),
    Name("REPLACE,a"),
    Name("LEFT,4"),
    Name("LEFT"),
    Name("LEFT,-1"),
    Name("RIGHT,5"),
    Name("RIGHT,x"),
    Name("MID,3"),
    Name("MID,3,2"),
    Name("MID,0,2"),
    Name("UCASE"),
    Name("LCASE"),
    Name("INITCAPS"),
    Name("INITCAPSALL"),
    Name("LEN"),
    Name("ROUND"),
    Name("ROUND,1"),
    Name("ROUND,-1"),
    Name("ABS"),
    Name("REGEXPREPLACE,/(\\w+) (\\w+)/,$2 $1"),
    Name("REGEXPREPLACE,/o/gi,<b>$&</b>"),
    Name("REGEXPREPLACE,/^l.*$/m"),
    Name("REGEXPREPLACE,/Smith"),
    Name("REGEXPREPLACE,/(/,x"),
    Name("REGEXPREPLACE|/a|b/g|-"),
    Name("  formatnumber , 1 "),
    Name("NOBODY,1"),
    Name(""),
};

}  // namespace

Texts CellTemplates() { return kTemplates; }

Texts CellFunctions() { return kFunctions; }

}  // namespace dralo::record
