#ifndef TRELVON_H
#define TRELVON_H

/// @file
/// The library for C, and for all languages that call C. It needs C99 and nothing else of
/// TrelvonUnits; C++ programs may include it, too.
///
///   trelvon_engine* engine;
///   trelvon_engine_create(&engine, NULL);
///   trelvon_add_folder(engine, trelvon_string("schemas/core"), NULL);
///   double meters;
///   trelvon_convert(engine, 6, trelvon_string("trelvon.unit:foot-1.0.0"),
///                   trelvon_string("trelvon.unit:meter-1.0.0"), &meters, NULL);
///   trelvon_engine_free(engine);
///
/// Each function does what its namesake in C++ does, with the same bits and messages; the comments of
/// the C++ headers hold. What is said here holds for all functions:
///
/// - A function that can fail returns a `trelvon_status`. If it fails, it writes no result.
/// - `error` is always last and may be null. Otherwise it is set: to null at first, and by a failure
///   to an error that the caller frees. It must not hold an error that is still to be freed.
/// - Texts that are passed in are only read during the call. Type ids, names and formulas may hold any
///   bytes. A null `data` is allowed for an empty text.
/// - A text result is written into a buffer of the caller. `*size` is its capacity before the call, and
///   the size of the text after it. No NUL is added. With a null buffer, the call only tells the size.
///   In a buffer that is too small nothing is written, and the status is `TRELVON_ARGUMENT`.
/// - What a function creates (`trelvon_engine**`, `trelvon_list**` ...) is freed by the caller with the
///   `_free` function of its type, which accepts null. Each is independent of all others.
/// - A null pointer where none is allowed gives `TRELVON_ARGUMENT`. A pointer that is not null must be
///   valid.
/// - Calls that take a const engine may run on several threads at once, as long as no other call uses
///   it. All else may be used by one thread at a time, and by any number if the calls take it as const.
/// - No exception leaves a function. A callback must return: it must not throw or jump out.
/// - Structures and their sizes, values and meanings stay the same in all versions of a major one.

#include <stddef.h>

/// The version of this header. Compare it with `trelvon_version`, which tells the library's.
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

/// Units, symbols and all else that converts, evaluates and formats; see UnitsEngine.h.
typedef struct trelvon_engine trelvon_engine;
/// Why a call failed.
typedef struct trelvon_error trelvon_error;
/// A conversion that is worked out once; see PreparedConversion.h.
typedef struct trelvon_conversion trelvon_conversion;
/// Finds units by names and codes; see UnitNames.h.
typedef struct trelvon_names trelvon_names;
/// Named formulas that refer to each other; see ParameterTable.h.
typedef struct trelvon_parameters trelvon_parameters;
/// How a formula was read; see FormulaExplanation.h.
typedef struct trelvon_explanation trelvon_explanation;
/// What became of schema texts; see SchemaReport.h.
typedef struct trelvon_load_report trelvon_load_report;
/// Records, names or texts, which never change. Texts that are read from it stay valid as long as it.
typedef struct trelvon_list trelvon_list;
/// How values are shown; see ValueDisplay.h.
typedef struct trelvon_display trelvon_display;
/// Where a resolver puts its answer.
typedef struct trelvon_answer trelvon_answer;

/// `size` bytes of UTF-8, which may hold NUL and do not end in one.
typedef struct {
  const char* data; /**< May be null if `size` is 0. */
  size_t size;      /**< In bytes. */
} trelvon_text;

/// How a call ended. The classes of Exceptions.h each have a status.
typedef enum {
  TRELVON_OK,
  TRELVON_UNRECOGNIZED, /**< UnrecognizedIdentifierException */
  TRELVON_VALIDATION,   /**< ValidationException */
  TRELVON_INCOMPATIBLE, /**< IncompatibleUnitsException */
  TRELVON_PRECISION,    /**< PrecisionException */
  TRELVON_PARSE,        /**< ParseException, or a faulty mapping of codes */
  TRELVON_MEMORY,       /**< There is not enough memory. */
  TRELVON_FILE,         /**< A folder, file or bundle cannot be found or read. */
  TRELVON_CALLBACK,     /**< A resolver failed, if it does not say otherwise. */
  TRELVON_ARGUMENT,     /**< An argument is null, too large, or out of range. */
  TRELVON_OTHER         /**< Anything else. */
} trelvon_status;

/// Returns the version of the library, such as "1.0.0".
TRELVON_API const char* trelvon_version(void);

/// Returns a view of a text that ends in a NUL. Null gives an empty text.
TRELVON_API trelvon_text trelvon_string(const char* text);

/* Errors. These three accept null, as of a call that succeeded. */

/// Returns the status of the call that failed.
TRELVON_API trelvon_status trelvon_error_status(const trelvon_error* error);

/// Returns the message, letter for letter that of C++ or of a resolver. It stays valid as long as the
/// error.
TRELVON_API trelvon_text trelvon_error_message(const trelvon_error* error);

/// Returns 1 and the bytes of the formula or text that were refused, or 0 if the error is about none.
/// For what a variable was replaced by, they are those of the variable.
TRELVON_API int trelvon_error_span(const trelvon_error* error, size_t* begin, size_t* end);

/// Frees an error.
TRELVON_API void trelvon_error_free(trelvon_error* error);

/* Engines */

/// Creates an empty engine.
TRELVON_API trelvon_status trelvon_engine_create(trelvon_engine** engine, trelvon_error** error);

/// Frees an engine. What was made from it stays valid.
TRELVON_API void trelvon_engine_free(trelvon_engine* engine);

/// Converts a number from one unit to another. `from` and `to` are type ids.
TRELVON_API trelvon_status trelvon_convert(const trelvon_engine* engine, double value,
                                           trelvon_text from, trelvon_text to, double* result,
                                           trelvon_error** error);

/// `*result` is 1 if `trelvon_convert` converts between the units, or else 0.
TRELVON_API trelvon_status trelvon_can_convert(const trelvon_engine* engine, trelvon_text from,
                                               trelvon_text to, int* result, trelvon_error** error);

/// - `places`: 0 to 12; more gives TRELVON_PRECISION, whose message calls more than 255 just 255.
/// - `symbol`: type id of a symbol, or null for the number alone.
/// - `trim`: whether to drop zeros at the end.
TRELVON_API trelvon_status trelvon_format_fixed(const trelvon_engine* engine, double value,
                                                unsigned places, const trelvon_text* symbol,
                                                int trim, char* buffer, size_t* size,
                                                trelvon_error** error);

/// - `precision`: 0 to 9; more is treated as above.
/// - `symbol`: type id of a symbol, or null for the number alone.
TRELVON_API trelvon_status trelvon_format_fractional(const trelvon_engine* engine, double value,
                                                     unsigned precision, const trelvon_text* symbol,
                                                     char* buffer, size_t* size,
                                                     trelvon_error** error);

/* Displays */

/// Makes a display of options in JSON, which docs/display.md describes. It does not refer to the engine
/// afterward.
TRELVON_API trelvon_status trelvon_display_create(const trelvon_engine* engine, trelvon_text json,
                                                  trelvon_display** display, trelvon_error** error);

/// Frees a display.
TRELVON_API void trelvon_display_free(trelvon_display* display);

/// Writes a value as text.
TRELVON_API trelvon_status trelvon_display_show(const trelvon_display* display, double value,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Reads a text as the display shows values. A text that is refused gives TRELVON_PARSE, with the span
/// of what was refused.
TRELVON_API trelvon_status trelvon_display_read(const trelvon_display* display, trelvon_text text,
                                                double* value, trelvon_error** error);

/// Writes how a text is read, value or refusal, as one JSON object; docs/display.md describes it. The
/// status of a refusal is TRELVON_OK.
TRELVON_API trelvon_status trelvon_display_read_json(const trelvon_display* display,
                                                     trelvon_text text, char* buffer, size_t* size,
                                                     trelvon_error** error);

/// Writes the options that are not the defaults, for `trelvon_display_create`.
TRELVON_API trelvon_status trelvon_display_json(const trelvon_display* display, char* buffer,
                                                size_t* size, trelvon_error** error);

/// Writes the type id of the unit in which values are counted; an empty text if there is none.
TRELVON_API trelvon_status trelvon_display_unit(const trelvon_display* display, char* buffer,
                                                size_t* size, trelvon_error** error);

/// Lists the names of all locales, as texts in byte order.
TRELVON_API trelvon_status trelvon_display_locales(trelvon_list** locales, trelvon_error** error);

/* Formulas */

/// Answers what replaces an identifier of a formula: it calls `trelvon_answer_text` and returns
/// TRELVON_OK. To refuse, it returns another status, and may set a message by the same function; the
/// call that evaluates then returns that status and message.
///
/// It may call the engine that evaluates, and even add to it.
typedef trelvon_status (*trelvon_resolver)(void* context, trelvon_text name,
                                           trelvon_answer* answer);

/// Sets or replaces the answer or message; the text is copied.
TRELVON_API trelvon_status trelvon_answer_text(trelvon_answer* answer, trelvon_text text);

/// Evaluates a formula in a unit.
///
/// A refusal takes about as long as a value. The formula is read once, and each identifier is asked for
/// once.
///
/// - `resolver`: null if the formula has no variables; an identifier is then refused.
/// - `context`: passed to the resolver.
TRELVON_API trelvon_status trelvon_evaluate(const trelvon_engine* engine, trelvon_text unit,
                                            trelvon_text formula, trelvon_resolver resolver,
                                            void* context, double* result, trelvon_error** error);

/// The same for a formula whose result has no units.
TRELVON_API trelvon_status trelvon_evaluate_unitless(const trelvon_engine* engine,
                                                     trelvon_text formula,
                                                     trelvon_resolver resolver, void* context,
                                                     double* result, trelvon_error** error);

/// Explains a formula. One that is refused is explained, too, and the status is TRELVON_OK.
///
/// Where the resolver returns TRELVON_PARSE, that is explained; another failure of it is returned.
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

/// The same as `trelvon_explain`, and asks the resolver for names that the text of a unit hides, too,
/// for the warning about them; see `HiddenVariables` in FormulaExplanation.h.
///
/// What the resolver refuses then is no failure.
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

/// Writes the formula with marks beneath, and sentences.
TRELVON_API trelvon_status trelvon_explain_text(const trelvon_explanation* explanation,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Writes the tree, a line for each node.
TRELVON_API trelvon_status trelvon_explain_tree(const trelvon_explanation* explanation,
                                                char* buffer, size_t* size, trelvon_error** error);

/// Frees an explanation.
TRELVON_API void trelvon_explanation_free(trelvon_explanation* explanation);

/* Parameters: named formulas that refer to each other */

/// Creates an empty table, which keeps the engine alive. A call that takes a table reads the engine, as
/// one does that takes the engine as const.
TRELVON_API trelvon_status trelvon_parameters_create(const trelvon_engine* engine,
                                                     trelvon_parameters** parameters,
                                                     trelvon_error** error);

/// Frees a table.
TRELVON_API void trelvon_parameters_free(trelvon_parameters* parameters);

/// Defines a parameter, or replaces its formula and unit.
///
/// - `unit`: type id of the unit that it is counted in; null if its formula decides.
TRELVON_API trelvon_status trelvon_parameters_set(trelvon_parameters* parameters, trelvon_text name,
                                                  trelvon_text formula, const trelvon_text* unit,
                                                  trelvon_error** error);

/// Gives a parameter another name, also where formulas refer to it.
TRELVON_API trelvon_status trelvon_parameters_rename(trelvon_parameters* parameters,
                                                     trelvon_text name, trelvon_text new_name,
                                                     trelvon_error** error);

/// Removes a parameter.
TRELVON_API trelvon_status trelvon_parameters_remove(trelvon_parameters* parameters,
                                                     trelvon_text name, trelvon_error** error);

/// Reads all formulas anew with the definitions that the engine has now.
TRELVON_API trelvon_status trelvon_parameters_reevaluate(trelvon_parameters* parameters,
                                                         trelvon_error** error);

/// Evaluates all formulas whose values are due. `*count` is how many they were.
TRELVON_API trelvon_status trelvon_parameters_evaluate(const trelvon_parameters* parameters,
                                                       size_t* count, trelvon_error** error);

/// Tells a value.
///
/// - `unit`: type id of the unit of the result. If null, it is the parameter's own unit; without one,
///   the value must be a plain number.
TRELVON_API trelvon_status trelvon_parameters_value(const trelvon_parameters* parameters,
                                                    trelvon_text name, const trelvon_text* unit,
                                                    double* value, trelvon_error** error);

/// Lists the names of all parameters, in byte order.
TRELVON_API trelvon_status trelvon_parameters_names(const trelvon_parameters* parameters,
                                                    trelvon_list** names, trelvon_error** error);

/// Writes a formula, with the names that its parameters have now.
TRELVON_API trelvon_status trelvon_parameters_formula(const trelvon_parameters* parameters,
                                                      trelvon_text name, char* buffer, size_t* size,
                                                      trelvon_error** error);

/// Writes the type id of a parameter's own unit; nothing if it has none.
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

/// Lists the messages of every cause why a parameter has no value.
TRELVON_API trelvon_status trelvon_parameters_problems(const trelvon_parameters* parameters,
                                                       trelvon_list** messages,
                                                       trelvon_error** error);

/// Writes how a parameter and all that it depends on were evaluated, as one JSON object, which
/// docs/parameters.md describes.
TRELVON_API trelvon_status trelvon_parameters_explain_json(const trelvon_parameters* parameters,
                                                           trelvon_text name, char* buffer,
                                                           size_t* size, trelvon_error** error);

/// Writes the same as text for people.
TRELVON_API trelvon_status trelvon_parameters_explain_text(const trelvon_parameters* parameters,
                                                           trelvon_text name, char* buffer,
                                                           size_t* size, trelvon_error** error);

/* Definitions */

/// Reads a schema text, which is pending until `trelvon_build_schemas`.
///
/// - `missing`: receives a list of the type ids that it refers to and that are neither stored nor
///   pending; null if they are not asked for.
TRELVON_API trelvon_status trelvon_add_definition(trelvon_engine* engine, trelvon_text schema,
                                                  trelvon_list** missing, trelvon_error** error);

/// Turns all pending schemas into records, all or none.
TRELVON_API trelvon_status trelvon_build_schemas(trelvon_engine* engine, trelvon_error** error);

/// Writes a stored definition as schema text.
TRELVON_API trelvon_status trelvon_definition(const trelvon_engine* engine, trelvon_text type_id,
                                              char* buffer, size_t* size, trelvon_error** error);

/// Lists the type ids that a definition depends on, in byte order.
TRELVON_API trelvon_status trelvon_dependencies(const trelvon_engine* engine, trelvon_text type_id,
                                                trelvon_list** texts, trelvon_error** error);

/// `*result` is 1 if the type id is taken, or else 0.
TRELVON_API trelvon_status trelvon_is_registered(const trelvon_engine* engine, trelvon_text type_id,
                                                 int* result, trelvon_error** error);

/* Loading. Paths are texts without NUL. */

/// Adds all schema files of a folder and builds them; see SchemaUtility.h.
TRELVON_API trelvon_status trelvon_add_folder(trelvon_engine* engine, trelvon_text folder,
                                              trelvon_error** error);

/// Adds all schema texts of a bundle and builds them; see SchemaBundle.h.
TRELVON_API trelvon_status trelvon_add_bundle(trelvon_engine* engine, trelvon_text bundle,
                                              trelvon_error** error);

/// The same for a bundle in a file.
TRELVON_API trelvon_status trelvon_add_bundle_file(trelvon_engine* engine, trelvon_text file,
                                                   trelvon_error** error);

/// What to do other than by default when loading with a report; combined by `|`.
enum {
  TRELVON_NO_LINTS = 1,     /**< Only look for errors. */
  TRELVON_LEAVE_OUT = 2,    /**< Load what is left without the files that have errors. */
  TRELVON_STOP_AT_ERROR = 4 /**< End with the first error. */
};

/// Loads folders and reports; see SchemaReport.h. Faulty files are findings of the report, and the
/// status is TRELVON_OK.
TRELVON_API trelvon_status trelvon_load_folders(trelvon_engine* engine, const trelvon_text* folders,
                                                size_t count, unsigned options,
                                                trelvon_load_report** report,
                                                trelvon_error** error);

/// The same for schema texts.
///
/// - `names`: `count` names that stand for the texts' files.
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
/// - `variables`: `variable_count` names that users give to variables in formulas; null, with a
///   `variable_count` of 0, for a list of the library's own.
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

/// Checks one schema text against an engine that does not hold it.
TRELVON_API trelvon_status trelvon_check_text(const trelvon_engine* engine, trelvon_text schema,
                                              trelvon_text shown_name, trelvon_load_report** report,
                                              trelvon_error** error);

/// Returns the number of errors; null has none. After errors nothing was loaded, unless the options ask
/// to leave out what has them.
TRELVON_API size_t trelvon_load_report_errors(const trelvon_load_report* report);
/// Returns the number of lints; null has none.
TRELVON_API size_t trelvon_load_report_warnings(const trelvon_load_report* report);

/// Writes one JSON object; docs/reports.md describes it.
TRELVON_API trelvon_status trelvon_load_report_json(const trelvon_load_report* report, char* buffer,
                                                    size_t* size, trelvon_error** error);

/// Writes a line for each finding, as compilers do.
TRELVON_API trelvon_status trelvon_load_report_text(const trelvon_load_report* report, char* buffer,
                                                    size_t* size, trelvon_error** error);

/// Writes a SARIF log.
TRELVON_API trelvon_status trelvon_load_report_sarif(const trelvon_load_report* report,
                                                     char* buffer, size_t* size,
                                                     trelvon_error** error);

/// Frees a report.
TRELVON_API void trelvon_load_report_free(trelvon_load_report* report);

/* Prepared conversions */

/// Works a conversion out. It does not refer to the engine afterward.
TRELVON_API trelvon_status trelvon_conversion_create(const trelvon_engine* engine,
                                                     trelvon_text from, trelvon_text to,
                                                     trelvon_conversion** conversion,
                                                     trelvon_error** error);

/// Converts `count` numbers. It allocates nothing.
///
/// Numbers are `from_stride` and `to_stride` doubles apart: 1 in an array, 3 for every third number. A
/// `from_stride` of 0 reads one number again and again. Where the arrays overlap, each number is read
/// when those before it have been written; so an array may be converted in place.
///
/// @return  TRELVON_ARGUMENT if something is null, unless `count` is 0; if `to_stride` is 0 and `count`
///          more than 1; or if an array would be larger than memory can be.
TRELVON_API trelvon_status trelvon_conversion_apply(const trelvon_conversion* conversion,
                                                    const double* from, size_t from_stride,
                                                    double* to, size_t to_stride, size_t count);

/// Frees a conversion.
TRELVON_API void trelvon_conversion_free(trelvon_conversion* conversion);

/* Records. Lists have them in byte order of type ids. */

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

/// Gets the units that are not defined by others.
TRELVON_API trelvon_status trelvon_primitive_units(const trelvon_engine* engine,
                                                   trelvon_list** units, trelvon_error** error);

/// Gets those of a dimension, or if it is null, those without one.
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

/// Gets the units that have exactly these powers of primitive units. Of two with the same type id the
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

/// What a unit is defined by.
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
  double offset;                       /**< Of an absolute unit, counted in its parent. */
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

/// What a text is to the unit that it names; see `NameKind` in UnitNames.h.
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
  trelvon_name_kind kind; /**< What the text is to the unit. */
  int is_exact;           /**< Whether the text was searched so, byte for byte. */
} trelvon_name;

/// Learns the names of an engine's units. It does not refer to the engine afterward.
///
/// - `mappings`: `count` texts of `codes.json` files; null if `count` is 0.
TRELVON_API trelvon_status trelvon_names_create(const trelvon_engine* engine,
                                                const trelvon_text* mappings, size_t count,
                                                trelvon_names** names, trelvon_error** error);

/// Frees names. What was found by them stays valid.
TRELVON_API void trelvon_names_free(trelvon_names* names);

/// Lists all units that a text names.
TRELVON_API trelvon_status trelvon_names_find(const trelvon_names* names, trelvon_text text,
                                              trelvon_list** found, trelvon_error** error);

/// Lists those that it names for the best reason: one, if there is no doubt.
TRELVON_API trelvon_status trelvon_names_find_best(const trelvon_names* names, trelvon_text text,
                                                   trelvon_list** found, trelvon_error** error);

/// Converts a number between units that are found by `trelvon_names_find_best`.
///
/// @return  TRELVON_UNRECOGNIZED if `from` or `to` names no unit or several; otherwise as
///          `trelvon_convert`.
TRELVON_API trelvon_status trelvon_convert_named(const trelvon_engine* engine,
                                                 const trelvon_names* names, double value,
                                                 trelvon_text from, trelvon_text to, double* result,
                                                 trelvon_error** error);

/// Works a conversion out between units that are found in the same way.
TRELVON_API trelvon_status trelvon_conversion_create_named(const trelvon_engine* engine,
                                                           const trelvon_names* names,
                                                           trelvon_text from, trelvon_text to,
                                                           trelvon_conversion** conversion,
                                                           trelvon_error** error);

/// Lists the units that a code of another system stands for.
TRELVON_API trelvon_status trelvon_names_find_code(const trelvon_names* names, trelvon_text system,
                                                   trelvon_text code, trelvon_list** found,
                                                   trelvon_error** error);

/// Lists at most `count` units whose names are near to a text.
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

/// Writes why `trelvon_names_find` finds nothing.
TRELVON_API trelvon_status trelvon_names_why_not(const trelvon_names* names, trelvon_text text,
                                                 char* buffer, size_t* size, trelvon_error** error);

/// Writes a text by which `trelvon_names_find_best` finds this unit alone.
TRELVON_API trelvon_status trelvon_names_unambiguous(const trelvon_names* names, trelvon_text unit,
                                                     char* buffer, size_t* size,
                                                     trelvon_error** error);

/// Writes the local id of a type id of any kind: "foot" of "trelvon.unit:foot-1.0.0".
TRELVON_API trelvon_status trelvon_local_id(trelvon_text type_id, char* buffer, size_t* size,
                                            trelvon_error** error);

/// Lists the systems that have codes, as texts.
TRELVON_API trelvon_status trelvon_names_systems(const trelvon_names* names, trelvon_list** systems,
                                                 trelvon_error** error);

/// Lists the codes of a unit in a system, as texts, the one for writing first.
TRELVON_API trelvon_status trelvon_names_codes(const trelvon_names* names, trelvon_text unit,
                                               trelvon_text system, trelvon_list** codes,
                                               trelvon_error** error);

/* Lists. An index that is not below the count, or a function for what the list does not hold, gives
   TRELVON_ARGUMENT. */

/// Returns the number of items; null has none.
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
