\echo Use "CREATE EXTENSION trelvonunits" to load this file. \quit

-- Units are given by type id, local id, name, symbol text or code; symbols by type id, local id or text.
-- COST counts operators on numbers; docs/postgresql.md says what was measured.

CREATE FUNCTION units_convert(value float8, from_unit text, to_unit text) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_convert' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE FUNCTION units_can_convert(from_unit text, to_unit text) RETURNS boolean
  AS 'MODULE_PATHNAME', 'units_can_convert' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;

-- The result is a number of the unit, or without one a plain number.
CREATE FUNCTION units_evaluate(formula text) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION units_evaluate(formula text, unit text) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION units_evaluate(formula text, variables jsonb) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 150;
CREATE FUNCTION units_evaluate(formula text, unit text, variables jsonb) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 150;

CREATE FUNCTION units_format(value float8, places integer, trim_zeros boolean DEFAULT false) RETURNS text
  AS 'MODULE_PATHNAME', 'units_format_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_format(value float8, symbol text, places integer, trim_zeros boolean DEFAULT false) RETURNS text
  AS 'MODULE_PATHNAME', 'units_format' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_format_fraction(value float8, fraction integer) RETURNS text
  AS 'MODULE_PATHNAME', 'units_format_fraction_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_format_fraction(value float8, symbol text, fraction integer) RETURNS text
  AS 'MODULE_PATHNAME', 'units_format_fraction' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;

CREATE FUNCTION units_explain(formula text) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION units_explain(formula text, unit text) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION units_explain(formula text, variables jsonb) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION units_explain(formula text, unit text, variables jsonb) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;

CREATE FUNCTION units_list() RETURNS TABLE (
    type_id text, local_id text, name text, system text, kind text, dimension text,
    factor float8, "offset" float8, parents jsonb, factors jsonb)
  AS 'MODULE_PATHNAME', 'units_list_all' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20000 ROWS 1000;
CREATE FUNCTION units_list(quantity text) RETURNS TABLE (
    type_id text, local_id text, name text, system text, kind text, dimension text,
    factor float8, "offset" float8, parents jsonb, factors jsonb)
  AS 'MODULE_PATHNAME', 'units_list' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 500 ROWS 20;
CREATE FUNCTION units_convertible(unit text) RETURNS TABLE (
    type_id text, local_id text, name text, system text, kind text, dimension text,
    factor float8, "offset" float8, parents jsonb, factors jsonb)
  AS 'MODULE_PATHNAME', 'units_convertible' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000 ROWS 20;
CREATE FUNCTION units_symbols(unit text) RETURNS TABLE (
    type_id text, local_id text, unit text, text text, placement text, has_space boolean)
  AS 'MODULE_PATHNAME', 'units_symbols' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100 ROWS 3;
