"""The calls on the page for users of Pint."""
from array import array

import trelvonunits

units = trelvonunits.Engine()
print(units.convert(6, "in", "cm"))
print(units.evaluate("2 ft + 3 in", "m"))
print(units.convert(array("d", [1, 2]), "in", "cm"))
print(units.can_convert("ft", "kg"))
print(len(units.by_id.convertible_units(units.id_of("ft"))) > 10)
print(units.format(6, "ft"))
for call in (lambda: units.convert(1, "ft", "kg"), lambda: units.convert(1, "fot", "m")):
    try:
        call()
    except trelvonunits.Error as error:
        print(type(error).__name__, error)
