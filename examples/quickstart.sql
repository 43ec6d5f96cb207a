-- Converts, evaluates and formats, with the catalog that comes with the extension.
SELECT units_convert(6, 'ft', 'm');
SELECT units_evaluate('2 ft + 3 in', 'm');
SELECT units_format_fraction(5.53125, 'feetAndInches', 4);
SELECT units_explain('2 ft + 3 kg', 'm') ->> '$.message';
