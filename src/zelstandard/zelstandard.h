#pragma once

/// @file
/// Everything that the library offers.

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/actions/ActionTypeReader.h>
#include <zelstandard/actions/ActionTypeWriter.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/attributes/StateAttributeReader.h>
#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/attributes/StateAttributeWriter.h>
#include <zelstandard/context/IO.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/DataFileKey.h>
#include <zelstandard/datafiles/zelofstream.h>
#include <zelstandard/flat.h>
#include <zelstandard/instructions/StateInstructionManager.h>
#include <zelstandard/instructions/StateInstructionReader.h>
#include <zelstandard/material/Coefficients.h>
#include <zelstandard/material/Control.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/Enumerations.h>
#include <zelstandard/vocabulary/OperatorTexts.h>
#include <zelstandard/vocabulary/SignificantInstant.h>
#include <zelstandard/vocabulary/XMLUtil.h>
