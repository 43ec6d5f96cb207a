\echo Use "ALTER EXTENSION trelvonunits UPDATE" to load this file. \quit

CREATE FUNCTION units_explain_text(formula text) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1700;
CREATE FUNCTION units_explain_text(formula text, unit units_name) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1700;
CREATE FUNCTION units_explain_text(formula text, variables jsonb) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1700;
CREATE FUNCTION units_explain_text(formula text, unit units_name, variables jsonb) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1700;

-- All units that a text names, and why.
CREATE FUNCTION units_find(name units_name) RETURNS TABLE (
    text text, unit text, kind text, is_exact boolean)
  AS 'MODULE_PATHNAME', 'units_find' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1200 ROWS 2;

-- The versions of the extension and the library, and the SHA-256 of the catalog.
CREATE FUNCTION units_version() RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_version' LANGUAGE C STABLE STRICT PARALLEL SAFE;

-- What keeps results: indexes, generated columns, constraints, partition keys, views and all else that is
-- to be looked at when a definition changes.
CREATE FUNCTION units_dependents() RETURNS TABLE (type text, identity text)
  LANGUAGE SQL STABLE PARALLEL SAFE AS $$
  SELECT DISTINCT found.type, found.identity
  FROM pg_catalog.pg_extension e
    JOIN pg_catalog.pg_depend member ON member.refclassid = 'pg_catalog.pg_extension'::regclass
      AND member.refobjid = e.oid AND member.deptype = 'e'
    JOIN pg_catalog.pg_depend used ON used.refclassid = member.classid AND used.refobjid = member.objid,
    pg_catalog.pg_identify_object(used.classid, used.objid, used.objsubid) found
  WHERE e.extname = 'trelvonunits' AND used.deptype <> 'e'
  ORDER BY 1, 2
$$;
