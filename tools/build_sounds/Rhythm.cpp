#include "tools/build_sounds/Rhythm.h"

#include <cmath>

namespace synth {

double Rhythm::Swung(double beat) const {
    const double pair = 2.0 * swingUnit;
    const double from = std::floor(beat / pair) * pair;
    const double within = (beat - from) / pair;
    const double moved =
        within < 0.5 ? within * 2.0 * swingShare : swingShare + (within - 0.5) * 2.0 * (1.0 - swingShare);
    return from + moved * pair;
}

} // namespace synth
