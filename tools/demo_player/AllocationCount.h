#pragma once

/// How often operator new has been called in this program.
long AllocationCount();
