#pragma once

/// @file
/// The one place that includes pugixml. Any version from 1.11 will do; a copy that lives in a
/// namespace of its own must bring the alias `pugi`, as the copies in circulation do.

#include <pugixml.hpp>
