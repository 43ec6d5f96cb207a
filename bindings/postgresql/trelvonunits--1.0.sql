\echo Use "CREATE EXTENSION trelvonunits" to load this file. \quit

-- A text that names a unit, symbol or quantity. It is a type of its own because it has no collation: so
-- postgres_fdw can send calls whose names are constants to other servers.
CREATE TYPE units_name;
CREATE FUNCTION units_name_in(cstring) RETURNS units_name
  AS 'textin' LANGUAGE internal IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION units_name_out(units_name) RETURNS cstring
  AS 'textout' LANGUAGE internal IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION units_name_recv(internal) RETURNS units_name
  AS 'textrecv' LANGUAGE internal STABLE STRICT PARALLEL SAFE;
CREATE FUNCTION units_name_send(units_name) RETURNS bytea
  AS 'textsend' LANGUAGE internal STABLE STRICT PARALLEL SAFE;
CREATE TYPE units_name (
  INPUT = units_name_in, OUTPUT = units_name_out, RECEIVE = units_name_recv,
  SEND = units_name_send, LIKE = text, CATEGORY = 'S');
CREATE CAST (text AS units_name) WITHOUT FUNCTION AS IMPLICIT;
CREATE CAST (varchar AS units_name) WITHOUT FUNCTION AS IMPLICIT;
CREATE CAST (units_name AS text) WITHOUT FUNCTION AS ASSIGNMENT;

-- Units are given by type id, local id, name, symbol text or code; symbols by type id, local id or text.
-- COST is the measured time in operators on numbers, and of functions that return rows, for each row.

CREATE FUNCTION units_convert(value float8, from_unit units_name, to_unit units_name) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_convert' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 4;
CREATE FUNCTION units_can_convert(from_unit units_name, to_unit units_name) RETURNS boolean
  AS 'MODULE_PATHNAME', 'units_can_convert' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;

-- The result is a number in the unit or, without one, a plain number.
CREATE FUNCTION units_evaluate(formula text) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION units_evaluate(formula text, unit units_name) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION units_evaluate(formula text, variables jsonb) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 300;
CREATE FUNCTION units_evaluate(formula text, unit units_name, variables jsonb) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_evaluate' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 300;

CREATE FUNCTION units_format(
    value float8, places integer, trim_zeros boolean DEFAULT false)
  RETURNS text AS 'MODULE_PATHNAME', 'units_format_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_format(
    value float8, symbol units_name, places integer, trim_zeros boolean DEFAULT false)
  RETURNS text AS 'MODULE_PATHNAME', 'units_format' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_format_fraction(value float8, fraction integer)
  RETURNS text AS 'MODULE_PATHNAME', 'units_format_fraction_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_format_fraction(value float8, symbol units_name, fraction integer)
  RETURNS text AS 'MODULE_PATHNAME', 'units_format_fraction' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;

CREATE FUNCTION units_explain(formula text) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2200;
CREATE FUNCTION units_explain(formula text, unit units_name) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2200;
CREATE FUNCTION units_explain(formula text, variables jsonb) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2200;
CREATE FUNCTION units_explain(formula text, unit units_name, variables jsonb) RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_explain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2200;

CREATE FUNCTION units_list() RETURNS TABLE (
    type_id text, local_id text, name text, system text, kind text, dimension text,
    factor float8, "offset" float8, parents jsonb, factors jsonb)
  AS 'MODULE_PATHNAME', 'units_list_all' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 400 ROWS 1000;
CREATE FUNCTION units_list(quantity units_name) RETURNS TABLE (
    type_id text, local_id text, name text, system text, kind text, dimension text,
    factor float8, "offset" float8, parents jsonb, factors jsonb)
  AS 'MODULE_PATHNAME', 'units_list' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 400 ROWS 20;
CREATE FUNCTION units_convertible(unit units_name) RETURNS TABLE (
    type_id text, local_id text, name text, system text, kind text, dimension text,
    factor float8, "offset" float8, parents jsonb, factors jsonb)
  AS 'MODULE_PATHNAME', 'units_convertible' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 400 ROWS 20;
CREATE FUNCTION units_symbols(unit units_name) RETURNS TABLE (
    type_id text, local_id text, unit text, text text, placement text, has_space boolean)
  AS 'MODULE_PATHNAME', 'units_symbols' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 800 ROWS 3;
