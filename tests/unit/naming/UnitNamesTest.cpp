#include <TrelvonUnits/UnitNames.h>
#include <gtest/gtest.h>
