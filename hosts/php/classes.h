#pragma once

#include <string_view>

#include "hosts/php/script_class.h"

namespace dralo::php {

extern ScriptClass db_view_class;
extern ScriptClass db_connection_class;
extern ScriptClass connection_class;
extern ScriptClass recordset_class;
extern ScriptClass command_class;
extern ScriptClass fields_class;
extern ScriptClass field_class;
extern ScriptClass parameters_class;
extern ScriptClass indexed_property_class;
extern ScriptClass change_class;
extern ScriptClass page_class;

/// Registers all classes. Called once, when the module starts.
void RegisterClasses();

/// Registers all classes in an engine that the extension cannot run in: `new` throws Dralo\Exception.
void RegisterRefusingClasses();

/// The class behind one of the extension's class entries.
const ScriptClass& ClassOf(const zend_class_entry* entry);

/// The class that scripts create by this programmatic identifier, in any letter case; nullptr when there is
/// none.
const ScriptClass* FindClass(std::string_view identifier);

/// Dralo\CreateObject().
extern const zend_function_entry kFunctions[];

}  // namespace dralo::php
