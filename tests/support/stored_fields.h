#pragma once

#include <algorithm>

#include "app/fields.h"

namespace calvora {

/// Whether analysis files hold a field: they hold all that the mask names.
inline bool isStored(int field) {
  return std::ranges::count(inputCaptions(), field, &FieldCaption::index) +
             std::ranges::count(resultCaptions(), field, &FieldCaption::index) >
         0;
}

}  // namespace calvora
