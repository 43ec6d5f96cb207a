"""Converts, evaluates and formats, with the catalog that comes with the package."""
import trelvonunits

units = trelvonunits.Engine()
print(f'{units.convert(6, "ft", "m"):g}')
print(units.evaluate("2 ft + 3 in", "m"))
print(units.format(5.53125, "feetAndInches", fraction=4))
try:
    units.evaluate("2 ft + 3 kg", "m")
except trelvonunits.ParseError as error:
    print(error)
