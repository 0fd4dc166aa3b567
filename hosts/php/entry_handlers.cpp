#include "hosts/php/entry_handlers.h"

#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"

namespace dralo::php {
namespace {

const Entries* EntriesOf(zend_object* object) { return FromZend(object)->script_class->entries; }

Entry ReadingOf(zend_object* object) { return FromZend(object)->script_class->reading; }

bool Has(zend_object* object, const zval* offset) {
  bool answer = false;
  EnterCpp(ReadingOf(object), [&] { answer = EntriesOf(object)->has(NativeOf(object), offset); });
  return answer;
}

void RefuseOffset(zend_object* object, const char* what) {
  zend_throw_error(nullptr, "Cannot %s of %s", what, ZSTR_VAL(object->ce->name));
}

void OffsetExists(INTERNAL_FUNCTION_PARAMETERS) {
  zval* offset;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_ZVAL(offset)
  ZEND_PARSE_PARAMETERS_END();
  RETURN_BOOL(HasEntry(Z_OBJ_P(ZEND_THIS), offset, 0));
}

void OffsetGet(INTERNAL_FUNCTION_PARAMETERS) {
  zval* offset;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_ZVAL(offset)
  ZEND_PARSE_PARAMETERS_END();
  ReadEntry(Z_OBJ_P(ZEND_THIS), offset, BP_VAR_R, return_value);
}

void OffsetSet(INTERNAL_FUNCTION_PARAMETERS) {
  zval* offset;
  zval* value;
  ZEND_PARSE_PARAMETERS_START(2, 2)
  Z_PARAM_ZVAL(offset)
  Z_PARAM_ZVAL(value)
  ZEND_PARSE_PARAMETERS_END();
  WriteEntry(Z_OBJ_P(ZEND_THIS), Z_TYPE_P(offset) == IS_NULL ? nullptr : offset, value);
}

void OffsetUnset(INTERNAL_FUNCTION_PARAMETERS) {
  zval* offset;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_ZVAL(offset)
  ZEND_PARSE_PARAMETERS_END();
  UnsetEntry(Z_OBJ_P(ZEND_THIS), offset);
}

void Count(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  zend_long count = 0;
  CountEntries(Z_OBJ_P(ZEND_THIS), &count);
  RETURN_LONG(count);
}

void GetIterator(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  zend_create_internal_iterator_zval(return_value, ZEND_THIS);
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(exists_arginfo, 0, 1, _IS_BOOL, 0)
ZEND_ARG_TYPE_INFO(0, offset, IS_MIXED, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(get_arginfo, 0, 1, IS_MIXED, 0)
ZEND_ARG_TYPE_INFO(0, offset, IS_MIXED, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(set_arginfo, 0, 2, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, offset, IS_MIXED, 0)
ZEND_ARG_TYPE_INFO(0, value, IS_MIXED, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(unset_arginfo, 0, 1, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, offset, IS_MIXED, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(count_arginfo, 0, 0, IS_LONG, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_OBJ_INFO_EX(iterator_arginfo, 0, 0, Iterator, 0)
ZEND_END_ARG_INFO()

}  // namespace

// clang-format off
#define DRALO_OFFSET_METHODS                                                   \
  SCRIPT_FUNCTION("offsetExists", OffsetExists, exists_arginfo, ZEND_ACC_PUBLIC) \
  SCRIPT_FUNCTION("offsetGet", OffsetGet, get_arginfo, ZEND_ACC_PUBLIC)          \
  SCRIPT_FUNCTION("offsetSet", OffsetSet, set_arginfo, ZEND_ACC_PUBLIC)          \
  SCRIPT_FUNCTION("offsetUnset", OffsetUnset, unset_arginfo, ZEND_ACC_PUBLIC)

const zend_function_entry kArrayAccessMethods[] = {
  DRALO_OFFSET_METHODS
  ZEND_FE_END};

const zend_function_entry kListMethods[] = {
  DRALO_OFFSET_METHODS
  SCRIPT_FUNCTION("count", Count, count_arginfo, ZEND_ACC_PUBLIC)
  SCRIPT_FUNCTION("getIterator", GetIterator, iterator_arginfo, ZEND_ACC_PUBLIC)
  ZEND_FE_END};
// clang-format on

zval* ReadEntry(zend_object* object, zval* offset, int type, zval* result) {
  const Entries* entries = EntriesOf(object);
  if (entries == nullptr) return zend_std_read_dimension(object, offset, type, result);
  if (offset == nullptr) {
    RefuseOffset(object, "read without an offset an entry");
    return nullptr;
  }
  ZVAL_DEREF(offset);
  if (type == BP_VAR_IS && (!Has(object, offset) || EG(exception))) return nullptr;
  ZVAL_UNDEF(result);
  if (!EnterCpp(ReadingOf(object), [&] { entries->read(NativeOf(object), offset, result); })) return nullptr;
  return result;
}

void WriteEntry(zend_object* object, zval* offset, zval* value) {
  const Entries* entries = EntriesOf(object);
  if (entries == nullptr) return zend_std_write_dimension(object, offset, value);
  if (entries->write == nullptr) return RefuseOffset(object, "replace an entry");
  if (offset != nullptr) ZVAL_DEREF(offset);
  ZVAL_DEREF(value);
  EnterCpp(Entry::kChanges, [&] { entries->write(NativeOf(object), offset, value); });
}

int HasEntry(zend_object* object, zval* offset, int check_empty) {
  const Entries* entries = EntriesOf(object);
  if (entries == nullptr) return zend_std_has_dimension(object, offset, check_empty);
  ZVAL_DEREF(offset);
  if (!Has(object, offset)) return false;
  zval value;
  ZVAL_UNDEF(&value);
  if (!EnterCpp(ReadingOf(object), [&] { entries->read(NativeOf(object), offset, &value); })) return false;
  const bool answer = check_empty ? zend_is_true(&value) : Z_TYPE(value) != IS_NULL;
  zval_ptr_dtor(&value);
  return answer;
}

void UnsetEntry(zend_object* object, zval* offset) {
  if (EntriesOf(object) == nullptr) return zend_std_unset_dimension(object, offset);
  RefuseOffset(object, "unset an entry");
}

zend_result CountEntries(zend_object* object, zend_long* count) {
  const Entries* entries = EntriesOf(object);
  if (entries == nullptr || entries->count == nullptr) return FAILURE;
  *count = 0;
  const bool counted =
      EnterCpp(ReadingOf(object), [&] { *count = static_cast<zend_long>(entries->count(NativeOf(object))); });
  return counted ? SUCCESS : FAILURE;
}

}  // namespace dralo::php
