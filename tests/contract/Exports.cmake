# Fails when the library exports a symbol that is not of the public interface.
#   cmake -D NM=<nm> -D LIBRARY=<file> -P Exports.cmake
set(records Dimension Factor FactorComponent AbsoluteUnitComponent DerivedUnitComponent
  PrimitiveUnitComponent Unit PrefixOrSuffix Symbol Quantity PreparedConversion)
set(polymorphic UnitsEngine IncompatibleUnitsException ParseException PrecisionException
  UnrecognizedIdentifierException ValidationException)
list(JOIN records | records)
list(JOIN polymorphic | polymorphic)

execute_process(COMMAND ${NM} -DC --defined-only ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "(^|\n)[0-9a-f]+ [A-Za-z] " "\\1" symbols "${symbols}")
string(STRIP "${symbols}" symbols)
string(REPLACE "\n" ";" symbols "${symbols}")
list(LENGTH symbols count)
if(count LESS 100)
  message(SEND_ERROR "Only ${count} symbols are exported.")
endif()
foreach(symbol IN LISTS symbols)
  if(NOT symbol MATCHES "^Units::(${records}|${polymorphic})::"
     AND NOT symbol MATCHES "^(vtable|typeinfo|typeinfo name) for Units::(${polymorphic})$"
     AND NOT symbol STREQUAL "Units::CreateUnitsEngine()"
     AND NOT symbol MATCHES "^Schemas::Schema(Utility|Bundle)::addDefinitionsFrom")
    message(SEND_ERROR "Exported without being of the interface: ${symbol}")
  endif()
endforeach()
message(STATUS "${count} symbols are exported.")
