#include "hosts/php/property_rows.h"

namespace dralo::php {

ScriptClass command_class = {
    .name = "Dralo\\Command",
    .identifier = "ADODB.Command",
    .declare =
        [](ScriptClass& registered) {
          DeclareRows<platform::Command>(registered, component::CommandProperties());
          DeclareList(registered, component::kParametersProperty, parameters_class);
        },
};

}  // namespace dralo::php
