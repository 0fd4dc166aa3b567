#include "hosts/php/property_rows.h"

namespace dralo::php {
namespace {

const zend_function_entry kMethods[] = {ZEND_FE_END};

}  // namespace

ScriptClass command_class = {
    .name = "Dralo\\Command",
    .methods = kMethods,
    .identifier = "ADODB.Command",
};

void RegisterCommand() {
  RegisterClass(command_class);
  DeclareRows<platform::Command>(command_class, component::CommandProperties());
  DeclareList(command_class, component::kParametersProperty, parameters_class);
}

}  // namespace dralo::php
