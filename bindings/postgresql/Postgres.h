/* The server's headers, in the order that they need. */
#ifndef TRELVON_POSTGRESQL_POSTGRES_H
#define TRELVON_POSTGRESQL_POSTGRES_H

// clang-format off
#include <postgres.h>
#include <fmgr.h>
#include <funcapi.h>
#include <miscadmin.h>
#include <mb/pg_wchar.h>
#include <storage/fd.h>
#include <utils/builtins.h>
#include <utils/guc.h>
#include <utils/hsearch.h>
#include <utils/json.h>
#include <utils/jsonb.h>
#include <utils/memutils.h>
// clang-format on

#include <TrelvonUnits/trelvon.h>

#endif
