-- The calls on the page for users of postgresql-unit.
SELECT units_convert(6, 'in', 'cm');
SELECT units_evaluate('800 m + 500 m', 'km');
SELECT units_format(units_evaluate('6 in', 'cm'), 'cm', 2);
SELECT units_can_convert('ft', 'kg');
