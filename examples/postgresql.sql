-- Ten queries with units; ./scripts/demo.sh postgresql runs them on a temporary server.
CREATE EXTENSION trelvonunits;

CREATE TABLE wells (
  name text PRIMARY KEY,
  depth text NOT NULL CHECK (units_evaluate(depth, 'm') > 0),
  depth_m float8 GENERATED ALWAYS AS (units_evaluate(depth, 'm')) STORED,
  pressure float8,
  unit text);
INSERT INTO wells VALUES
  ('north', '9800 ft', DEFAULT, 4200, 'psi'), ('east', '2.9 km', DEFAULT, 285, 'bar'),
  ('south', '(3000 - 50) m', DEFAULT, 29.1, 'MPa');
CREATE INDEX wells_by_pressure ON wells (units_convert(pressure, unit, 'kPa'));

-- 1. A number, and a formula with units.
SELECT units_convert(6, 'ft', 'm') AS meters, units_evaluate('5'' 6 1/2" + 3 cm', 'in') AS inches;

-- 2. Each row in its unit.
SELECT name, depth, depth_m, units_convert(pressure, unit, 'bar') AS bar FROM wells ORDER BY depth_m;

-- 3. As people write it.
SELECT name, units_format(depth_m, 'meter', 1) AS depth,
       units_format_fraction(units_convert(depth_m, 'm', 'ft'), 'feetAndInches', 4) AS feet
FROM wells ORDER BY name;

-- 4. Aggregates over converted values.
SELECT count(*), avg(units_convert(pressure, unit, 'MPa')) AS megapascals FROM wells;

-- 5. Variables come as JSON.
SELECT name, units_evaluate('density * 9.80665 m/s2 * depth', 'bar',
                            jsonb_build_object('density', '1.03 g/cm3', 'depth', depth)) AS bar
FROM wells ORDER BY name;

-- 6. Which units convert to one.
SELECT local_id, system, kind FROM units_convertible('fc') ORDER BY local_id;

-- 7. Find units by name.
SELECT * FROM units_find('K');

-- 8. How a formula is read, with warnings.
SELECT units_explain_text('10 m - 35 cm', 'm');

-- 9. An index on converted values.
SET enable_seqscan = off;
EXPLAIN (COSTS OFF) SELECT name FROM wells WHERE units_convert(pressure, unit, 'kPa') > 28900;

-- 10. The error of a wrong formula.
SELECT units_evaluate('2 ft + 3 kg', 'm');
