#pragma once

#include <string>
#include <string_view>

namespace dralo::regional {

/// The locale to use, as a language tag such as "en-US": `setting` when it is not empty, else what the
/// environment variables LC_ALL and LANG say, else "en-US". Accepted are tags ("de-DE", in any letter case)
/// and the forms of the environment ("de_DE.UTF-8", "de_DE@euro", "sr_RS@latin"); "C" and "POSIX", with or
/// without a character set, mean "en-US". Throws platform::Error when `setting` names no locale that ICU has
/// data for; an unknown name in the environment means "en-US".
std::string ChooseLocale(std::string_view setting);

/// The same with the two variables given; an empty text stands for a variable that is not set.
std::string ChooseLocale(std::string_view setting, std::string_view lc_all, std::string_view lang);

}  // namespace dralo::regional
