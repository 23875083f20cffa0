#include "examples/controls/ControlsGame.h"

int main() { return RunInWindow<ControlsGame>(); }
