#include "examples/sound/SoundGame.h"

int main() { return RunInWindow<SoundGame>(); }
