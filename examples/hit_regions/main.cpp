#include "examples/hit_regions/HitRegionsGame.h"

int main() { return RunInWindow<HitRegionsGame>(); }
