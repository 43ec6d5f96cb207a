#pragma once

/// @file
/// The whole public interface. Each header below also compiles on its own.
///
/// Start with UnitsEngine.h; fill an engine with SchemaUtility.h, SchemaBundle.h, SchemaReport.h or
/// its own add operations.

/// @namespace Units
/// Engines, their records, and what they say of formulas and names.

/// @namespace Schemas
/// What fills engines from files, and reports on them.

#include <TrelvonUnits/AbsoluteUnitComponent.h>
#include <TrelvonUnits/DerivedUnitComponent.h>
#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/FactorComponent.h>
#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/FormulaOutcome.h>
#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/Limits.h>
#include <TrelvonUnits/ParameterTable.h>
#include <TrelvonUnits/Placement.h>
#include <TrelvonUnits/PrefixOrSuffix.h>
#include <TrelvonUnits/PreparedConversion.h>
#include <TrelvonUnits/PrimitivePowers.h>
#include <TrelvonUnits/PrimitiveUnitComponent.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/SchemaBundle.h>
#include <TrelvonUnits/SchemaReport.h>
#include <TrelvonUnits/SchemaUtility.h>
#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/System.h>
#include <TrelvonUnits/Unit.h>
#include <TrelvonUnits/UnitCodes.h>
#include <TrelvonUnits/UnitNames.h>
#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/ValueDisplay.h>
#include <TrelvonUnits/VariableResolver.h>
