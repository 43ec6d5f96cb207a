\echo Use "ALTER EXTENSION trelvonunits UPDATE" to load this file. \quit

CREATE FUNCTION units_explain_text(formula text) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 600;
CREATE FUNCTION units_explain_text(formula text, unit units_name) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 600;
CREATE FUNCTION units_explain_text(formula text, variables jsonb) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text_plain' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 600;
CREATE FUNCTION units_explain_text(formula text, unit units_name, variables jsonb) RETURNS text
  AS 'MODULE_PATHNAME', 'units_explain_text' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 600;

-- The text by which a display shows a number, and the number that such a text shows. The display has the
-- members of DisplayOptions.
CREATE FUNCTION units_show(value float8, display jsonb) RETURNS text
  AS 'MODULE_PATHNAME', 'units_show' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION units_read(text text, display jsonb) RETURNS float8
  AS 'MODULE_PATHNAME', 'units_read' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;

-- All units that a text names, and why.
CREATE FUNCTION units_find(name units_name) RETURNS TABLE (
    text text, unit text, kind text, is_exact boolean)
  AS 'MODULE_PATHNAME', 'units_find' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1200 ROWS 2;

-- The versions of the extension and the library, and the SHA-256 of the catalog.
CREATE FUNCTION units_version() RETURNS jsonb
  AS 'MODULE_PATHNAME', 'units_version' LANGUAGE C STABLE STRICT PARALLEL SAFE;

-- What stores results: indexes, generated columns, constraints, partition keys, views and everything else
-- to check when a definition changes.
CREATE FUNCTION units_dependents() RETURNS TABLE (type text, identity text)
  LANGUAGE SQL STABLE PARALLEL SAFE SET search_path = pg_catalog, pg_temp AS $$
  WITH members AS (
    SELECT d.classid, d.objid
    FROM pg_catalog.pg_depend d JOIN pg_catalog.pg_extension e ON e.oid = d.refobjid
    WHERE d.refclassid = 'pg_catalog.pg_extension'::regclass AND d.deptype = 'e'
      AND e.extname = 'trelvonunits')
  SELECT DISTINCT found.type, found.identity
  FROM members m
    JOIN pg_catalog.pg_depend d ON d.refclassid = m.classid AND d.refobjid = m.objid,
    pg_catalog.pg_identify_object(d.classid, d.objid, d.objsubid) found
  WHERE d.deptype NOT IN ('e', 'i') AND (d.classid, d.objid) NOT IN (SELECT * FROM members)
  ORDER BY 1, 2
$$;
