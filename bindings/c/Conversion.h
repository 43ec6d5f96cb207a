#pragma once

#include <TrelvonUnits/PreparedConversion.h>
#include <TrelvonUnits/trelvon.h>

struct trelvon_conversion {
  Units::PreparedConversion prepared;
};
