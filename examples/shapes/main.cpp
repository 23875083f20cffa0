#include "examples/shapes/ShapesGame.h"

int main() { return RunInWindow<ShapesGame>(); }
