#include "examples/sprites/SpritesGame.h"

int main() { return RunInWindow<SpritesGame>(); }
