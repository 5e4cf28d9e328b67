#include "engine/search_options.h"

namespace tavlon12 {

Long NoiseRangeOf(Byte strengthStep) {
    if (strengthStep == 0) return 0;
    if (strengthStep == 1) return 5;
    return 70 * strengthStep - 70;
}

} // namespace tavlon12
