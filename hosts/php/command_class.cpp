#include "hosts/php/property_rows.h"

namespace dralo::php {

ScriptClass command_class = {
    .name = "Dralo\\Command",
    .identifier = "ADODB.Command",
};

void RegisterCommand() {
  RegisterClass(command_class);
  DeclareRows<platform::Command>(command_class, component::CommandProperties());
  DeclareList(command_class, component::kParametersProperty, parameters_class);
}

}  // namespace dralo::php
