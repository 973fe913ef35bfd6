// Tasks as a main application would have published them, for the gallery's overviews.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"

namespace corvane::gallery {

/// Of all four views. Due days lie around today.
HGTaskProxyModels exampleTaskProxyModels();

}  // namespace corvane::gallery
