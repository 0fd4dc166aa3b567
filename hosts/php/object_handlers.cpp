#include "hosts/php/object_handlers.h"

#include "hosts/php/entry_handlers.h"
#include "hosts/php/native_object.h"
#include "hosts/php/property_handlers.h"
#include "hosts/php/snapshot.h"

namespace dralo::php {

zend_object_handlers object_handlers;

void SetUpObjectHandlers() {
  object_handlers = *zend_get_std_object_handlers();
  object_handlers.offset = XtOffsetOf(NativeObject, std);
  object_handlers.free_obj = FreeObject;
  object_handlers.clone_obj = nullptr;
  object_handlers.compare = zend_objects_not_comparable;

  object_handlers.read_property = ReadProperty;
  object_handlers.write_property = WriteProperty;
  object_handlers.has_property = HasProperty;
  object_handlers.unset_property = UnsetProperty;
  object_handlers.get_property_ptr_ptr = GetPropertyPointer;

  object_handlers.read_dimension = ReadEntry;
  object_handlers.write_dimension = WriteEntry;
  object_handlers.has_dimension = HasEntry;
  object_handlers.unset_dimension = UnsetEntry;
  object_handlers.count_elements = CountEntries;

  object_handlers.get_properties = GetProperties;
  object_handlers.get_properties_for = GetPropertiesFor;
  object_handlers.get_gc = GetGarbageRoots;
}

}  // namespace dralo::php
