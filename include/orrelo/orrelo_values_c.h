#pragma once

#include <orrelo/Export.h>

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** @file
   Statuses, and the values of events. `orrelo_c.h` includes this header and states the rules for memory,
   threads and errors, which apply here too. */

/** The result of a call. */
typedef int32_t orrelo_status;
enum {
  ORRELO_OK = 0,
  /** An argument is missing, out of its range, or not of the form that it needs. */
  ORRELO_INVALID_ARGUMENT = 1,
  /** An event holds null, bytes, or a value of an unknown type. */
  ORRELO_UNSUPPORTED_VALUE = 2,
  /** `orrelo_initialize` comes first. */
  ORRELO_NOT_INITIALIZED = 3,
  ORRELO_TIMED_OUT = 4,
  /** The call belongs to the main thread. */
  ORRELO_WRONG_THREAD = 5,
  /** Anything else, such as a lack of memory. */
  ORRELO_FAILED = 6
};

/** A short English text for the status. Never NULL, also for a number that is no status. Static. */
ORRELO_EXPORT const char* orrelo_status_text(orrelo_status status);
/** The status of the calling thread's last call that returns a status or a new handle. */
ORRELO_EXPORT orrelo_status orrelo_last_status(void);
/** What was wrong with that call, in English, in up to 511 bytes; empty if it succeeded. Never NULL. Valid
   until the thread's next call. */
ORRELO_EXPORT const char* orrelo_last_error(void);

/** One value of an event. A plain value: it may be used on any thread, but on one at a time. */
typedef struct orrelo_value orrelo_value;
/** Values by key: those of one event, the properties of a user, or the payload of a notification. A plain
 * value too. */
typedef struct orrelo_values orrelo_values;

/** The type of a value. */
enum {
  ORRELO_TYPE_NULL = 0,
  ORRELO_TYPE_BOOL = 1,
  ORRELO_TYPE_INTEGER = 2,
  ORRELO_TYPE_NUMBER = 3,
  ORRELO_TYPE_TEXT = 4,
  ORRELO_TYPE_DATE = 5,
  ORRELO_TYPE_UUID = 6,
  ORRELO_TYPE_URL = 7,
  ORRELO_TYPE_LIST = 8,
  /** Distinct values in the order of their first insertion. */
  ORRELO_TYPE_SET = 9,
  ORRELO_TYPE_DICTIONARY = 10,
  ORRELO_TYPE_BYTES = 11,
  /** A value of a type unknown to the kit, of which only the type's name is kept. */
  ORRELO_TYPE_OTHER = 12
};

/* New values belong to the caller until they are put into a collection. NULL on failure. `orrelo_send_event`
   refuses null, bytes and other at the top level. */

/** The value null. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_null(void);
/** A value of ORRELO_TYPE_BOOL. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_bool(bool value);
/** A value of ORRELO_TYPE_INTEGER. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_integer(int64_t value);
/** A value of ORRELO_TYPE_NUMBER. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_number(double value);
/** Copies the text. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_text(const char* text);
/** Microseconds from 1970-01-01T00:00:00Z. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_date(int64_t microseconds);
/** The 16 bytes of the identifier, in the order in which they are written. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_uuid(const uint8_t* bytes);
/** Fails with ORRELO_INVALID_ARGUMENT if the text is no URI reference of RFC 3986; nothing is repaired. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_url(const char* text);
/** Copies the bytes, which may be NULL if `size` is 0. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_bytes(const void* bytes, size_t size);
/** `typeName` is what the explanations and errors call the type. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_other(const char* typeName);
/** An empty list; `orrelo_value_append` fills it. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_list(void);
/** An empty set; `orrelo_value_append` fills it. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_set(void);
/** Takes `entries`, also if it fails. */
ORRELO_EXPORT orrelo_value* orrelo_value_new_dictionary(orrelo_values* entries);

/** Appends `element` to a list, or to a set that does not hold it yet. Takes `element`, also if it fails. A
   value has at most 512 levels; ORRELO_INVALID_ARGUMENT for more. */
ORRELO_EXPORT orrelo_status orrelo_value_append(orrelo_value* collection, orrelo_value* element);
/** A copy with all that the value contains. */
ORRELO_EXPORT orrelo_value* orrelo_value_copy(const orrelo_value* value);
/** Does nothing with NULL. */
ORRELO_EXPORT void orrelo_value_free(orrelo_value* value);

/* Reading. A getter for another type returns ORRELO_INVALID_ARGUMENT or NULL. What a getter returns by
   pointer belongs to the value and is valid until the value is changed or freed. */

/** One of ORRELO_TYPE_…; -1 for NULL. */
ORRELO_EXPORT int32_t orrelo_value_type(const orrelo_value* value);
/** The value of an ORRELO_TYPE_BOOL. */
ORRELO_EXPORT orrelo_status orrelo_value_get_bool(const orrelo_value* value, bool* result);
/** The value of an ORRELO_TYPE_INTEGER. */
ORRELO_EXPORT orrelo_status orrelo_value_get_integer(const orrelo_value* value, int64_t* result);
/** The value of an ORRELO_TYPE_NUMBER; an integer is none. */
ORRELO_EXPORT orrelo_status orrelo_value_get_number(const orrelo_value* value, double* result);
/** Microseconds from 1970-01-01T00:00:00Z. */
ORRELO_EXPORT orrelo_status orrelo_value_get_date(const orrelo_value* value, int64_t* result);
/** Writes 16 bytes. */
ORRELO_EXPORT orrelo_status orrelo_value_get_uuid(const orrelo_value* value, uint8_t* result);
/** The text, that of the URL, or the name of the unknown type. `length`, in bytes, may be NULL. */
ORRELO_EXPORT const char* orrelo_value_get_text(const orrelo_value* value, size_t* length);
/** The bytes, and their number in `size`. Not NULL if there are none. */
ORRELO_EXPORT const void* orrelo_value_get_bytes(const orrelo_value* value, size_t* size);
/** The entries of a dictionary. */
ORRELO_EXPORT const orrelo_values* orrelo_value_get_dictionary(const orrelo_value* value);
/** The number of elements of a list or of a set; 0 for any other value. */
ORRELO_EXPORT size_t orrelo_value_count(const orrelo_value* value);
/** NULL if there is no such element. */
ORRELO_EXPORT const orrelo_value* orrelo_value_element(const orrelo_value* value, size_t index);

/** No values. NULL on failure. */
ORRELO_EXPORT orrelo_values* orrelo_values_new(void);
/** The members of a JSON object, of up to 8 MiB and 512 levels; the first of repeated ones. NULL on failure,
   with ORRELO_INVALID_ARGUMENT if the text is no such object. */
ORRELO_EXPORT orrelo_values* orrelo_values_from_json(const char* json);
/** A copy with all values. NULL on failure. */
ORRELO_EXPORT orrelo_values* orrelo_values_copy(const orrelo_values* values);
/** Does nothing with NULL. */
ORRELO_EXPORT void orrelo_values_free(orrelo_values* values);

/** Sets the value under `key`, in place of an existing one. Takes `value`, also if it fails. */
ORRELO_EXPORT orrelo_status orrelo_values_set(orrelo_values* values, const char* key, orrelo_value* value);
/** `orrelo_values_set` with a new value of ORRELO_TYPE_BOOL. */
ORRELO_EXPORT orrelo_status orrelo_values_set_bool(orrelo_values* values, const char* key, bool value);
/** `orrelo_values_set` with a new value of ORRELO_TYPE_INTEGER. */
ORRELO_EXPORT orrelo_status orrelo_values_set_integer(orrelo_values* values, const char* key, int64_t value);
/** `orrelo_values_set` with a new value of ORRELO_TYPE_NUMBER. */
ORRELO_EXPORT orrelo_status orrelo_values_set_number(orrelo_values* values, const char* key, double value);
/** `orrelo_values_set` with a copy of the text. */
ORRELO_EXPORT orrelo_status orrelo_values_set_text(orrelo_values* values, const char* key, const char* text);

/** The number of keys; 0 for NULL. */
ORRELO_EXPORT size_t orrelo_values_count(const orrelo_values* values);
/** The keys are sorted by their bytes. NULL if there is no such key. */
ORRELO_EXPORT const char* orrelo_values_key(const orrelo_values* values, size_t index);
/** NULL if there is no value under `key`. */
ORRELO_EXPORT const orrelo_value* orrelo_values_get(const orrelo_values* values, const char* key);

#ifdef __cplusplus
}
#endif
