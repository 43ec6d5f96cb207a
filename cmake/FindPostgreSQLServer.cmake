# Finds what is needed to build extensions of a PostgreSQL server, by pg_config. Sets
# PostgreSQLServer_FOUND, TRELVONUNITS_POSTGRESQL_INCLUDE_DIR, and the folders that the server reads,
# TRELVONUNITS_POSTGRESQL_LIBDIR and TRELVONUNITS_POSTGRESQL_SHAREDIR.
find_program(TRELVONUNITS_PG_CONFIG pg_config DOC "The program pg_config of PostgreSQL's server")
mark_as_advanced(TRELVONUNITS_PG_CONFIG)
foreach(asked IN ITEMS includedir-server pkglibdir sharedir)
  set(pg_${asked} "")
  if(TRELVONUNITS_PG_CONFIG)
    execute_process(COMMAND ${TRELVONUNITS_PG_CONFIG} --${asked} OUTPUT_VARIABLE pg_${asked}
      OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
endforeach()
set(TRELVONUNITS_POSTGRESQL_INCLUDE_DIR "${pg_includedir-server}")
set(TRELVONUNITS_POSTGRESQL_LIBDIR "${pg_pkglibdir}")
set(TRELVONUNITS_POSTGRESQL_SHAREDIR "${pg_sharedir}")
set(PostgreSQLServer_FOUND FALSE)
if(EXISTS "${pg_includedir-server}/funcapi.h")
  set(PostgreSQLServer_FOUND TRUE)
endif()
