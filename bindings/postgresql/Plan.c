#include "bindings/postgresql/Plan.h"

#include "bindings/postgresql/Engine.h"

#include <nodes/nodeFuncs.h>

plan* begin_plan(FunctionCallInfo call) {
  plan* made = call->flinfo->fn_extra;
  if (made == NULL) {
    made = MemoryContextAllocZero(call->flinfo->fn_mcxt, sizeof *made);
    call->flinfo->fn_extra = made;
  }
  begin_lookups();
  made->generation = engine_generation;
  made->is_constant = false;
  return made;
}

bool is_constant_argument(FunctionCallInfo call, int index) {
  const Node* const expression = call->flinfo->fn_expr;
  const FuncExpr* function = (const FuncExpr*)expression;
  if (expression == NULL || !IsA(expression, FuncExpr)) return false;
  return index < list_length(function->args) && IsA(list_nth(function->args, index), Const);
}
