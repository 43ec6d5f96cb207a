/* What a call in a statement keeps from row to row. */
#ifndef TRELVON_POSTGRESQL_PLAN_H
#define TRELVON_POSTGRESQL_PLAN_H

#include "bindings/postgresql/Held.h"
#include "bindings/postgresql/Names.h"

typedef struct {
  unsigned generation;  // the engine's when this was made; 0 if nothing was
  bool is_constant;     // whether the arguments with names are constants of the statement
  const trelvon_conversion* conversion;
  const char* type_id;
  held* display;  // lives as long as the plan
} plan;

/* Makes an empty plan, or empties one whose names have changed in the meantime. */
plan* begin_plan(FunctionCallInfo call);

/* Whether an argument is written as a constant. A parameter is not one: it may change between two runs
   of a plan. */
bool is_constant_argument(FunctionCallInfo call, int index);

/* The plan of a call if all of it is still valid, or null. */
static inline plan* kept_plan(FunctionCallInfo call, unsigned generation) {
  plan* const kept = call->flinfo->fn_extra;
  return kept != NULL && kept->is_constant && kept->generation == generation ? kept : NULL;
}

#endif
