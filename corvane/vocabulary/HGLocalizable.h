// The localization under the name that the domain's classes use.
#pragma once

#include "corvane/vocabulary/EXLocalizable.h"

namespace corvane {

class HGLocalizable : public EXLocalizable {};

}  // namespace corvane
