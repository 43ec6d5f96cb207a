#ifndef TRELVON_H
#define TRELVON_H

/// @file
/// The library for C, and for all languages that can call C. This header needs C99 and no other
/// header of TrelvonUnits. C++ programs may include it, too.
///
///   trelvon_engine* engine;
///   trelvon_engine_create(&engine, NULL);
///   trelvon_add_folder(engine, trelvon_string("schemas/core"), NULL);
///   double meters;
///   trelvon_convert(engine, 6, trelvon_string("trelvon.unit:foot-1.0.0"),
///                   trelvon_string("trelvon.unit:meter-1.0.0"), &meters, NULL);
///   trelvon_engine_free(engine);
///
/// Each function does what the C++ function of the same name does, with the same bits and messages;
/// see the comments in the C++ headers. These rules apply to all functions:
///
/// - A function that can fail returns a `trelvon_status`. If it fails, it does not write its
///   result.
/// - `error` is always the last parameter and may be null. If it is not, the call first sets
///   `*error` to null. If the call fails, it sets `*error` to an error that the caller must free.
///   The old value is overwritten, so free an earlier error first.
/// - Texts that are passed in are read only during the call. Type ids, names and formulas may
///   contain any bytes. The `data` of an empty text may be null.
/// - A text result is written into the caller's buffer. `*size` is the capacity of the buffer
///   before the call and the size of the text after it. No NUL is added. If the buffer is null, the
///   call only sets `*size`. If the buffer is too small, the call sets `*size`, writes no text, and
///   returns `TRELVON_ARGUMENT`.
/// - The caller frees what a function creates (`trelvon_engine**`, `trelvon_list**` ...) with the
///   `_free` function of its type, which accepts null. Objects are independent of each other and
///   can be freed in any order.
/// - A null pointer where none is allowed gives `TRELVON_ARGUMENT`. A pointer that is not null must
///   be valid.
/// - Calls that take an engine as const may run on several threads at once, as long as no other
///   call uses that engine. The same holds for all other objects.
/// - No function throws an exception. A callback must return: it must not throw or `longjmp`.
/// - Structures, their sizes, and all values and meanings stay the same within a major version.

#include <stddef.h>

/// The version of this header. `trelvon_version` returns that of the library.
#define TRELVON_VERSION "1.0.0"

/// Marks the functions of the library.
#if defined(_WIN32)
#if defined(TRELVONUNITS_BUILDING)
#define TRELVON_API __declspec(dllexport)
#else
#define TRELVON_API __declspec(dllimport)
#endif
#else
#define TRELVON_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// Holds units and symbols, and converts, evaluates and formats; see UnitsEngine.h.
typedef struct trelvon_engine trelvon_engine;
/// Why a call failed.
typedef struct trelvon_error trelvon_error;
/// A prepared conversion, for many numbers; see PreparedConversion.h.
typedef struct trelvon_conversion trelvon_conversion;
/// Finds units by names and codes; see UnitNames.h.
typedef struct trelvon_names trelvon_names;
/// Named formulas that refer to each other; see ParameterTable.h.
typedef struct trelvon_parameters trelvon_parameters;
/// How a formula was read; see FormulaExplanation.h.
typedef struct trelvon_explanation trelvon_explanation;
/// A report on loaded schema texts; see SchemaReport.h.
typedef struct trelvon_load_report trelvon_load_report;
/// A list of records, names or texts. It never changes. Texts read from it stay valid until it is
/// freed.
typedef struct trelvon_list trelvon_list;
/// How values are shown; see ValueDisplay.h.
typedef struct trelvon_display trelvon_display;
/// Where a resolver puts its answer.
typedef struct trelvon_answer trelvon_answer;

/// `size` bytes of UTF-8. They may contain NULs, and need no NUL at the end.
typedef struct {
  const char* data; /**< May be null if `size` is 0. */
  size_t size;      /**< In bytes. */
} trelvon_text;

/// The result of a call. Each exception class of Exceptions.h has a status.
typedef enum {
  TRELVON_OK,
  TRELVON_UNRECOGNIZED, /**< UnrecognizedIdentifierException */
  TRELVON_VALIDATION,   /**< ValidationException */
  TRELVON_INCOMPATIBLE, /**< IncompatibleUnitsException */
  TRELVON_PRECISION,    /**< PrecisionException */
  TRELVON_PARSE,        /**< ParseException, or a faulty mapping of codes */
  TRELVON_MEMORY,       /**< There is not enough memory. */
  TRELVON_FILE,         /**< A folder, file or bundle cannot be found or read. */
  TRELVON_CALLBACK,     /**< A resolver failed without giving another status. */
  TRELVON_ARGUMENT,     /**< An argument is null, too large, or out of range. */
  TRELVON_OTHER         /**< Anything else. */
} trelvon_status;

/// Returns the version of the library, such as "1.0.0".
TRELVON_API const char* trelvon_version(void);

/// Returns a view of a text that ends in a NUL. Null gives an empty text.
TRELVON_API trelvon_text trelvon_string(const char* text);

/* Errors. These functions accept null, which is what a successful call sets. */

/// Returns the status of the call that failed.
TRELVON_API trelvon_status trelvon_error_status(const trelvon_error* error);

/// Returns the message, exactly that of C++ or of a resolver. It stays valid until the error is
/// freed.
TRELVON_API trelvon_text trelvon_error_message(const trelvon_error* error);

/// If part of a formula or text was refused, returns 1 and sets `*begin` and `*end` to the range of
/// its bytes; otherwise returns 0. For a text that replaced a variable, the range is that of the
/// variable.
TRELVON_API int trelvon_error_span(const trelvon_error* error, size_t* begin, size_t* end);

/// Frees an error.
TRELVON_API void trelvon_error_free(trelvon_error* error);

/* Engines */

/// Creates an empty engine.
TRELVON_API trelvon_status trelvon_engine_create(trelvon_engine** engine, trelvon_error** error);

/// Frees an engine. Objects that were made from it stay valid.
TRELVON_API void trelvon_engine_free(trelvon_engine* engine);

/// Converts a number from one unit to another. `from` and `to` are type ids.
TRELVON_API trelvon_status trelvon_convert(const trelvon_engine* engine, double value,
                                           trelvon_text from, trelvon_text to, double* result,
                                           trelvon_error** error);

/// Sets `*result` to 1 if `trelvon_convert` can convert between the units, otherwise to 0.
TRELVON_API trelvon_status trelvon_can_convert(const trelvon_engine* engine, trelvon_text from,
                                               trelvon_text to, int* result, trelvon_error** error);

/// Writes a number with decimal places.
///
/// - `places`: 0 to 12; more gives TRELVON_PRECISION. The message shows numbers above 255 as 255.
/// - `symbol`: type id of a symbol, or null for the number alone.
/// - `trim`: whether to drop trailing zeros.
TRELVON_API trelvon_status trelvon_format_fixed(const trelvon_engine* engine, double value,
                                                unsigned places, const trelvon_text* symbol,
                                                int trim, char* buffer, size_t* size,
                                                trelvon_error** error);

/// Writes a number with a fraction.
///
/// - `precision`: 0 to 9, the number of halvings: 4 is sixteenths. More is treated as above.
/// - `symbol`: type id of a symbol, or null for the number alone.
TRELVON_API trelvon_status trelvon_format_fractional(const trelvon_engine* engine, double value,
                                                     unsigned precision, const trelvon_text* symbol,
                                                     char* buffer, size_t* size,
                                                     trelvon_error** error);

/* Displays */

/// Creates a display from options in JSON; docs/display.md describes them. The display does not
/// refer to the engine.
TRELVON_API trelvon_status trelvon_display_create(const trelvon_engine* engine, trelvon_text json,
                                                  trelvon_display** display, trelvon_error** error);

/// Frees a display.
TRELVON_API void trelvon_display_free(trelvon_display* display);

/// Writes a value as text.
TRELVON_API trelvon_status trelvon_display_show(const trelvon_display* display, double value,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Reads a text of the form that the display shows. If the text is refused, the status is
/// TRELVON_PARSE, and the error has the span of what was refused.
TRELVON_API trelvon_status trelvon_display_read(const trelvon_display* display, trelvon_text text,
                                                double* value, trelvon_error** error);

/// Writes how a text is read, with its value or why it is refused, as one JSON object;
/// docs/display.md describes it. The status is TRELVON_OK even if the text is refused.
TRELVON_API trelvon_status trelvon_display_read_json(const trelvon_display* display,
                                                     trelvon_text text, char* buffer, size_t* size,
                                                     trelvon_error** error);

/// Writes the options that differ from the defaults, for `trelvon_display_create`.
TRELVON_API trelvon_status trelvon_display_json(const trelvon_display* display, char* buffer,
                                                size_t* size, trelvon_error** error);

/// Writes the type id of the unit of the values, or an empty text if there is none.
TRELVON_API trelvon_status trelvon_display_unit(const trelvon_display* display, char* buffer,
                                                size_t* size, trelvon_error** error);

/// Lists the names of all locales, as texts in byte order.
TRELVON_API trelvon_status trelvon_display_locales(trelvon_list** locales, trelvon_error** error);

/* Formulas */

/// Provides the text that replaces an identifier in a formula. A resolver calls
/// `trelvon_answer_text` with the text and returns TRELVON_OK. To refuse, it returns another
/// status, and may set a message with the same function; the evaluating call then fails with that
/// status and message.
///
/// A resolver may call the engine that is evaluating, and may even add definitions to it.
typedef trelvon_status (*trelvon_resolver)(void* context, trelvon_text name,
                                           trelvon_answer* answer);

/// Sets or replaces a resolver's answer or message. The text is copied.
TRELVON_API trelvon_status trelvon_answer_text(trelvon_answer* answer, trelvon_text text);

/// Evaluates a formula in a unit.
///
/// The formula is read once, and the resolver is called once for each identifier, up to the place
/// of a refusal. A refused formula takes about as long as any other.
///
/// - `unit`: type id of the unit of the result.
/// - `resolver`: may be null; then every identifier is refused.
/// - `context`: passed to the resolver.
TRELVON_API trelvon_status trelvon_evaluate(const trelvon_engine* engine, trelvon_text unit,
                                            trelvon_text formula, trelvon_resolver resolver,
                                            void* context, double* result, trelvon_error** error);

/// The same for a formula whose result has no units.
TRELVON_API trelvon_status trelvon_evaluate_unitless(const trelvon_engine* engine,
                                                     trelvon_text formula,
                                                     trelvon_resolver resolver, void* context,
                                                     double* result, trelvon_error** error);

/// Explains a formula. The status is TRELVON_OK even if the formula is refused: the refusal is
/// explained.
///
/// If the resolver returns TRELVON_PARSE, that is explained, too. If it returns another failure,
/// the call fails with it.
///
/// - `unit`: type id of the requested unit. If null, the value is in primitive units.
TRELVON_API trelvon_status trelvon_explain(const trelvon_engine* engine, const trelvon_text* unit,
                                           trelvon_text formula, trelvon_resolver resolver,
                                           void* context, trelvon_explanation** explanation,
                                           trelvon_error** error);

/// The same for a formula whose result has no units.
TRELVON_API trelvon_status trelvon_explain_unitless(const trelvon_engine* engine,
                                                    trelvon_text formula, trelvon_resolver resolver,
                                                    void* context,
                                                    trelvon_explanation** explanation,
                                                    trelvon_error** error);

/// The same as `trelvon_explain`, but also asks the resolver about names that the text of a unit
/// hides, to warn about them; see `HiddenVariables` in FormulaExplanation.h.
///
/// The call does not fail if the resolver refuses these names.
TRELVON_API trelvon_status trelvon_explain_hidden(const trelvon_engine* engine,
                                                  const trelvon_text* unit, trelvon_text formula,
                                                  trelvon_resolver resolver, void* context,
                                                  trelvon_explanation** explanation,
                                                  trelvon_error** error);

/// The same for a formula whose result has no units.
TRELVON_API trelvon_status trelvon_explain_unitless_hidden(const trelvon_engine* engine,
                                                           trelvon_text formula,
                                                           trelvon_resolver resolver, void* context,
                                                           trelvon_explanation** explanation,
                                                           trelvon_error** error);

/// Writes one JSON object; docs/explain.md describes it.
TRELVON_API trelvon_status trelvon_explain_json(const trelvon_explanation* explanation,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Writes the formula with marks under it, and sentences.
TRELVON_API trelvon_status trelvon_explain_text(const trelvon_explanation* explanation,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Writes the tree, one line for each node.
TRELVON_API trelvon_status trelvon_explain_tree(const trelvon_explanation* explanation,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Frees an explanation.
TRELVON_API void trelvon_explanation_free(trelvon_explanation* explanation);

/* Parameters: named formulas that refer to each other */

/// Creates an empty table, which keeps the engine alive. A call that takes a table counts as a call
/// that takes the engine as const.
TRELVON_API trelvon_status trelvon_parameters_create(const trelvon_engine* engine,
                                                     trelvon_parameters** parameters,
                                                     trelvon_error** error);

/// Frees a table.
TRELVON_API void trelvon_parameters_free(trelvon_parameters* parameters);

/// Defines a parameter, or replaces its formula and unit.
///
/// - `unit`: type id of the parameter's own unit; null if the formula decides.
TRELVON_API trelvon_status trelvon_parameters_set(trelvon_parameters* parameters, trelvon_text name,
                                                  trelvon_text formula, const trelvon_text* unit,
                                                  trelvon_error** error);

/// Renames a parameter, also in the formulas that refer to it.
TRELVON_API trelvon_status trelvon_parameters_rename(trelvon_parameters* parameters,
                                                     trelvon_text name, trelvon_text new_name,
                                                     trelvon_error** error);

/// Removes a parameter.
TRELVON_API trelvon_status trelvon_parameters_remove(trelvon_parameters* parameters,
                                                     trelvon_text name, trelvon_error** error);

/// Reads all formulas again, with the engine's current definitions.
TRELVON_API trelvon_status trelvon_parameters_reevaluate(trelvon_parameters* parameters,
                                                         trelvon_error** error);

/// Evaluates all formulas that need it, and sets `*count` to their number.
TRELVON_API trelvon_status trelvon_parameters_evaluate(const trelvon_parameters* parameters,
                                                       size_t* count, trelvon_error** error);

/// Gets the value of a parameter.
///
/// - `unit`: type id of the unit of the result. If null, the parameter's own unit; if it has none,
///   the value must be a plain number.
TRELVON_API trelvon_status trelvon_parameters_value(const trelvon_parameters* parameters,
                                                    trelvon_text name, const trelvon_text* unit,
                                                    double* value, trelvon_error** error);

/// Lists the names of all parameters, in byte order.
TRELVON_API trelvon_status trelvon_parameters_names(const trelvon_parameters* parameters,
                                                    trelvon_list** names, trelvon_error** error);

/// Writes the formula of a parameter, with the current names of the parameters in it.
TRELVON_API trelvon_status trelvon_parameters_formula(const trelvon_parameters* parameters,
                                                      trelvon_text name, char* buffer, size_t* size,
                                                      trelvon_error** error);

/// Writes the type id of a parameter's own unit, or an empty text if it has none.
TRELVON_API trelvon_status trelvon_parameters_unit(const trelvon_parameters* parameters,
                                                   trelvon_text name, char* buffer, size_t* size,
                                                   trelvon_error** error);

/// Lists the names that a formula refers to, in byte order.
TRELVON_API trelvon_status trelvon_parameters_references(const trelvon_parameters* parameters,
                                                         trelvon_text name, trelvon_list** names,
                                                         trelvon_error** error);

/// Lists the parameters whose formulas refer to a name, in byte order.
TRELVON_API trelvon_status trelvon_parameters_dependents(const trelvon_parameters* parameters,
                                                         trelvon_text name, trelvon_list** names,
                                                         trelvon_error** error);

/// Lists the reasons why parameters have no value, as messages.
TRELVON_API trelvon_status trelvon_parameters_problems(const trelvon_parameters* parameters,
                                                       trelvon_list** messages,
                                                       trelvon_error** error);

/// Writes how a parameter and everything that it depends on were evaluated, as one JSON object;
/// docs/parameters.md describes it.
TRELVON_API trelvon_status trelvon_parameters_explain_json(const trelvon_parameters* parameters,
                                                           trelvon_text name, char* buffer,
                                                           size_t* size, trelvon_error** error);

/// Writes the same as text for people.
TRELVON_API trelvon_status trelvon_parameters_explain_text(const trelvon_parameters* parameters,
                                                           trelvon_text name, char* buffer,
                                                           size_t* size, trelvon_error** error);

/* Definitions */

/// Reads a schema text. The definition is pending until `trelvon_build_schemas`.
///
/// - `missing`: receives a list of the type ids that the text refers to and that are neither stored
///   nor pending. May be null.
TRELVON_API trelvon_status trelvon_add_definition(trelvon_engine* engine, trelvon_text schema,
                                                  trelvon_list** missing, trelvon_error** error);

/// Builds all pending schemas into records: either all or none.
TRELVON_API trelvon_status trelvon_build_schemas(trelvon_engine* engine, trelvon_error** error);

/// Writes a stored definition as schema text.
TRELVON_API trelvon_status trelvon_definition(const trelvon_engine* engine, trelvon_text type_id,
                                              char* buffer, size_t* size, trelvon_error** error);

/// Lists the type ids that a definition depends on, in byte order.
TRELVON_API trelvon_status trelvon_dependencies(const trelvon_engine* engine, trelvon_text type_id,
                                                trelvon_list** texts, trelvon_error** error);

/// Sets `*result` to 1 if the type id is taken, otherwise to 0.
TRELVON_API trelvon_status trelvon_is_registered(const trelvon_engine* engine, trelvon_text type_id,
                                                 int* result, trelvon_error** error);

/* Loading. Paths must not contain NUL. */

/// Adds all schema files of a folder and builds them; see SchemaUtility.h.
TRELVON_API trelvon_status trelvon_add_folder(trelvon_engine* engine, trelvon_text folder,
                                              trelvon_error** error);

/// Adds all schema texts of a bundle and builds them; see SchemaBundle.h.
TRELVON_API trelvon_status trelvon_add_bundle(trelvon_engine* engine, trelvon_text bundle,
                                              trelvon_error** error);

/// The same for a bundle in a file.
TRELVON_API trelvon_status trelvon_add_bundle_file(trelvon_engine* engine, trelvon_text file,
                                                   trelvon_error** error);

/// Options for loading with a report; combine them with `|`.
enum {
  TRELVON_NO_LINTS = 1,     /**< Only look for errors. */
  TRELVON_LEAVE_OUT = 2,    /**< Leave out the files that have errors, and load the rest. */
  TRELVON_STOP_AT_ERROR = 4 /**< Stop at the first error. */
};

/// Loads folders and reports; see SchemaReport.h. Faulty files are findings in the report: the
/// status is still TRELVON_OK.
TRELVON_API trelvon_status trelvon_load_folders(trelvon_engine* engine, const trelvon_text* folders,
                                                size_t count, unsigned options,
                                                trelvon_load_report** report,
                                                trelvon_error** error);

/// The same for schema texts.
///
/// - `names`: `count` names, which the report shows instead of file paths.
/// - `texts`: `count` schema texts.
TRELVON_API trelvon_status trelvon_load_texts(trelvon_engine* engine, const trelvon_text* names,
                                              const trelvon_text* texts, size_t count,
                                              unsigned options, trelvon_load_report** report,
                                              trelvon_error** error);

/// The same for a bundle.
TRELVON_API trelvon_status trelvon_load_bundle(trelvon_engine* engine, trelvon_text bundle,
                                               trelvon_text shown_name, unsigned options,
                                               trelvon_load_report** report, trelvon_error** error);

/// Loads folders, and looks for symbols that hide variables of these names.
///
/// - `variables`: `variable_count` names that users give to variables in formulas. If null, with a
///   `variable_count` of 0, the library uses its own list.
TRELVON_API trelvon_status trelvon_load_folders_for(trelvon_engine* engine,
                                                    const trelvon_text* variables,
                                                    size_t variable_count,
                                                    const trelvon_text* folders, size_t count,
                                                    unsigned options, trelvon_load_report** report,
                                                    trelvon_error** error);

/// The same for schema texts.
TRELVON_API trelvon_status trelvon_load_texts_for(trelvon_engine* engine,
                                                  const trelvon_text* variables,
                                                  size_t variable_count, const trelvon_text* names,
                                                  const trelvon_text* texts, size_t count,
                                                  unsigned options, trelvon_load_report** report,
                                                  trelvon_error** error);

/// The same for a bundle.
TRELVON_API trelvon_status trelvon_load_bundle_for(trelvon_engine* engine,
                                                   const trelvon_text* variables,
                                                   size_t variable_count, trelvon_text bundle,
                                                   trelvon_text shown_name, unsigned options,
                                                   trelvon_load_report** report,
                                                   trelvon_error** error);

/// Checks one schema text against an engine that does not have its definition.
TRELVON_API trelvon_status trelvon_check_text(const trelvon_engine* engine, trelvon_text schema,
                                              trelvon_text shown_name, trelvon_load_report** report,
                                              trelvon_error** error);

/// Returns the number of errors; 0 for null. If there are errors, nothing was loaded, except with
/// TRELVON_LEAVE_OUT.
TRELVON_API size_t trelvon_load_report_errors(const trelvon_load_report* report);
/// Returns the number of lints; 0 for null.
TRELVON_API size_t trelvon_load_report_warnings(const trelvon_load_report* report);

/// Writes one JSON object; docs/reports.md describes it.
TRELVON_API trelvon_status trelvon_load_report_json(const trelvon_load_report* report, char* buffer,
                                                    size_t* size, trelvon_error** error);

/// Writes one line for each finding, as compilers do.
TRELVON_API trelvon_status trelvon_load_report_text(const trelvon_load_report* report, char* buffer,
                                                    size_t* size, trelvon_error** error);

/// Writes a SARIF log.
TRELVON_API trelvon_status trelvon_load_report_sarif(const trelvon_load_report* report,
                                                     char* buffer, size_t* size,
                                                     trelvon_error** error);

/// Frees a report.
TRELVON_API void trelvon_load_report_free(trelvon_load_report* report);

/* Prepared conversions */

/// Prepares a conversion. It does not refer to the engine.
TRELVON_API trelvon_status trelvon_conversion_create(const trelvon_engine* engine,
                                                     trelvon_text from, trelvon_text to,
                                                     trelvon_conversion** conversion,
                                                     trelvon_error** error);

/// Converts `count` numbers. It allocates nothing.
///
/// Numbers are `from_stride` and `to_stride` doubles apart: 1 for all numbers of an array, 3 for
/// every third one. A `from_stride` of 0 reads the same number again and again. If the arrays
/// overlap, each number is read after all numbers before it were written, so an array can be
/// converted in place.
///
/// @return  TRELVON_ARGUMENT if a pointer is null, unless `count` is 0; if `to_stride` is 0 and
///          `count` is more than 1; or if an array would be larger than memory can be.
TRELVON_API trelvon_status trelvon_conversion_apply(const trelvon_conversion* conversion,
                                                    const double* from, size_t from_stride,
                                                    double* to, size_t to_stride, size_t count);

/// Frees a conversion.
TRELVON_API void trelvon_conversion_free(trelvon_conversion* conversion);

/* Records. Lists are in byte order of type ids. */

/// The kinds of records.
typedef enum {
  TRELVON_DIMENSION,
  TRELVON_FACTOR,
  TRELVON_UNIT,
  TRELVON_SYMBOL,
  TRELVON_QUANTITY
} trelvon_kind;

/// Gets one record as a list of one.
TRELVON_API trelvon_status trelvon_record(const trelvon_engine* engine, trelvon_kind kind,
                                          trelvon_text type_id, trelvon_list** records,
                                          trelvon_error** error);

/// Gets all records of a kind.
TRELVON_API trelvon_status trelvon_records(const trelvon_engine* engine, trelvon_kind kind,
                                           trelvon_list** records, trelvon_error** error);

/// Gets the units that are not defined in terms of others.
TRELVON_API trelvon_status trelvon_primitive_units(const trelvon_engine* engine,
                                                   trelvon_list** units, trelvon_error** error);

/// Gets the primitive units of a dimension, or those without one if it is null.
TRELVON_API trelvon_status trelvon_primitive_units_of(const trelvon_engine* engine,
                                                      const trelvon_text* dimension,
                                                      trelvon_list** units, trelvon_error** error);

/// Gets the units that a unit converts to.
TRELVON_API trelvon_status trelvon_convertible_units(const trelvon_engine* engine,
                                                     trelvon_text unit, trelvon_list** units,
                                                     trelvon_error** error);

/// A type id and an exponent.
typedef struct {
  trelvon_text type_id; /**< Of a unit or factor. */
  int exponent;         /**< May be negative. */
} trelvon_power;

/// Gets the units that have exactly these powers of primitive units. If a type id occurs twice, the
/// last one counts.
TRELVON_API trelvon_status trelvon_units_with_powers(const trelvon_engine* engine,
                                                     const trelvon_power* powers, size_t count,
                                                     trelvon_list** units, trelvon_error** error);

/// Gets the symbols of a unit.
TRELVON_API trelvon_status trelvon_symbols_of(const trelvon_engine* engine, trelvon_text unit,
                                              trelvon_list** symbols, trelvon_error** error);

/// Gets the quantities that list a unit.
TRELVON_API trelvon_status trelvon_quantities_of(const trelvon_engine* engine, trelvon_text unit,
                                                 trelvon_list** quantities, trelvon_error** error);

/// A dimension; see Dimension.h.
typedef struct {
  trelvon_text type_id; /**< As defined. */
} trelvon_dimension;

/// A factor; see Factor.h.
typedef struct {
  trelvon_text type_id;         /**< As defined. */
  double factor;                /**< Without the parents. */
  const trelvon_power* parents; /**< Factors. */
  size_t parent_count;          /**< Of `parents`. */
} trelvon_factor;

/// How a unit is defined.
typedef enum { TRELVON_PRIMITIVE, TRELVON_DERIVED, TRELVON_ABSOLUTE } trelvon_unit_kind;
/// The system that a unit belongs to.
typedef enum { TRELVON_METRIC, TRELVON_IMPERIAL } trelvon_system;

/// A unit; see Unit.h.
typedef struct {
  trelvon_text type_id;                /**< As defined. */
  trelvon_text name;                   /**< As defined. */
  trelvon_system system;               /**< As defined. */
  trelvon_unit_kind kind;              /**< Members of other kinds are 0. */
  trelvon_text dimension;              /**< Of a primitive unit; empty if it has none. */
  trelvon_text parent;                 /**< Of an absolute unit. */
  double offset;                       /**< Of an absolute unit, in its parent unit. */
  double factor;                       /**< Of a derived unit, without the parents. */
  const trelvon_power* parents;        /**< Of a derived unit: units. */
  size_t parent_count;                 /**< Of `parents`. */
  const trelvon_power* parent_factors; /**< Of a derived unit. */
  size_t parent_factor_count;          /**< Of `parent_factors`. */
} trelvon_unit;

/// A symbol; see Symbol.h.
typedef struct {
  trelvon_text type_id; /**< As defined. */
  trelvon_text unit;    /**< A type id. */
  int is_composite;     /**< If 1, the members below are 0. */
  int is_prefix;        /**< 1 for `$ 5`, 0 for `5 kg`. */
  int has_space;        /**< Whether there is a space between number and text. */
  trelvon_text text;    /**< May be empty. */
} trelvon_symbol;

/// A quantity; see Quantity.h.
typedef struct {
  trelvon_text type_id;      /**< As defined. */
  trelvon_text name;         /**< As defined. */
  const trelvon_text* units; /**< Type ids, in the order of the definition. */
  size_t unit_count;         /**< Of `units`. */
} trelvon_quantity;

/* Names */

/// How a text names a unit; see `NameKind` in UnitNames.h.
typedef enum {
  TRELVON_NAME_TYPE_ID,
  TRELVON_NAME_LOCAL_ID,
  TRELVON_NAME_NAME,
  TRELVON_NAME_SYMBOL,
  TRELVON_NAME_CODE,
  TRELVON_NAME_CODE_EXPRESSION
} trelvon_name_kind;

/// A text that names a unit.
typedef struct {
  trelvon_text text;      /**< As the engine has it. */
  trelvon_text unit;      /**< A type id. */
  trelvon_name_kind kind; /**< How the text names the unit. */
  int is_exact;           /**< Whether the searched text is exactly this one. */
} trelvon_name;

/// Collects the names of an engine's units. The result does not refer to the engine.
///
/// - `mappings`: `count` texts of `codes.json` files; null if `count` is 0.
TRELVON_API trelvon_status trelvon_names_create(const trelvon_engine* engine,
                                                const trelvon_text* mappings, size_t count,
                                                trelvon_names** names, trelvon_error** error);

/// Frees names. Lists that were found with them stay valid.
TRELVON_API void trelvon_names_free(trelvon_names* names);

/// Lists all units that a text names.
TRELVON_API trelvon_status trelvon_names_find(const trelvon_names* names, trelvon_text text,
                                              trelvon_list** found, trelvon_error** error);

/// Lists the best matches: one, if the text is unambiguous.
TRELVON_API trelvon_status trelvon_names_find_best(const trelvon_names* names, trelvon_text text,
                                                   trelvon_list** found, trelvon_error** error);

/// Converts a number between units that are found as by `trelvon_names_find_best`.
///
/// @return  TRELVON_UNRECOGNIZED if `from` or `to` names no unit or several; otherwise as
///          `trelvon_convert`.
TRELVON_API trelvon_status trelvon_convert_named(const trelvon_engine* engine,
                                                 const trelvon_names* names, double value,
                                                 trelvon_text from, trelvon_text to, double* result,
                                                 trelvon_error** error);

/// Prepares a conversion between units that are found in the same way.
TRELVON_API trelvon_status trelvon_conversion_create_named(const trelvon_engine* engine,
                                                           const trelvon_names* names,
                                                           trelvon_text from, trelvon_text to,
                                                           trelvon_conversion** conversion,
                                                           trelvon_error** error);

/// Lists the units that a code of another system stands for.
TRELVON_API trelvon_status trelvon_names_find_code(const trelvon_names* names, trelvon_text system,
                                                   trelvon_text code, trelvon_list** found,
                                                   trelvon_error** error);

/// Lists at most `count` units whose names are similar to a text.
TRELVON_API trelvon_status trelvon_names_suggest(const trelvon_names* names, trelvon_text text,
                                                 size_t count, trelvon_list** found,
                                                 trelvon_error** error);

/// Lists at most `count` names that begin with a text.
TRELVON_API trelvon_status trelvon_names_completions(const trelvon_names* names,
                                                     trelvon_text prefix, size_t count,
                                                     trelvon_list** found, trelvon_error** error);

/// Lists all names of a unit.
TRELVON_API trelvon_status trelvon_names_of(const trelvon_names* names, trelvon_text unit,
                                            trelvon_list** found, trelvon_error** error);

/// Writes why `trelvon_names_find` finds nothing; an empty text if it finds a unit.
TRELVON_API trelvon_status trelvon_names_why_not(const trelvon_names* names, trelvon_text text,
                                                 char* buffer, size_t* size, trelvon_error** error);

/// Writes a text with which `trelvon_names_find_best` finds only this unit.
TRELVON_API trelvon_status trelvon_names_unambiguous(const trelvon_names* names, trelvon_text unit,
                                                     char* buffer, size_t* size,
                                                     trelvon_error** error);

/// Writes the local id of a type id of any kind: "foot" of "trelvon.unit:foot-1.0.0".
TRELVON_API trelvon_status trelvon_local_id(trelvon_text type_id, char* buffer, size_t* size,
                                            trelvon_error** error);

/// Lists the systems that have codes, as texts.
TRELVON_API trelvon_status trelvon_names_systems(const trelvon_names* names, trelvon_list** systems,
                                                 trelvon_error** error);

/// Lists the codes of a unit in a system, as texts, the one to write first.
TRELVON_API trelvon_status trelvon_names_codes(const trelvon_names* names, trelvon_text unit,
                                               trelvon_text system, trelvon_list** codes,
                                               trelvon_error** error);

/* Lists. An index that is not less than the count, or a function for another kind of item, gives
   TRELVON_ARGUMENT. */

/// Returns the number of items; 0 for null.
TRELVON_API size_t trelvon_list_count(const trelvon_list* list);

/// Reads a text of a list.
TRELVON_API trelvon_status trelvon_list_text(const trelvon_list* list, size_t index,
                                             trelvon_text* text, trelvon_error** error);
/// Reads a dimension.
TRELVON_API trelvon_status trelvon_list_dimension(const trelvon_list* list, size_t index,
                                                  trelvon_dimension* dimension,
                                                  trelvon_error** error);
/// Reads a factor.
TRELVON_API trelvon_status trelvon_list_factor(const trelvon_list* list, size_t index,
                                               trelvon_factor* factor, trelvon_error** error);
/// Reads a unit.
TRELVON_API trelvon_status trelvon_list_unit(const trelvon_list* list, size_t index,
                                             trelvon_unit* unit, trelvon_error** error);
/// Reads a symbol.
TRELVON_API trelvon_status trelvon_list_symbol(const trelvon_list* list, size_t index,
                                               trelvon_symbol* symbol, trelvon_error** error);
/// Reads a quantity.
TRELVON_API trelvon_status trelvon_list_quantity(const trelvon_list* list, size_t index,
                                                 trelvon_quantity* quantity, trelvon_error** error);
/// Reads a name.
TRELVON_API trelvon_status trelvon_list_name(const trelvon_list* list, size_t index,
                                             trelvon_name* name, trelvon_error** error);

/// Frees a list, and the texts that were read from it.
TRELVON_API void trelvon_list_free(trelvon_list* list);

#ifdef __cplusplus
}
#endif

#endif
