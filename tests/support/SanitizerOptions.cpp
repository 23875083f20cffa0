// What the sanitizers cannot know about libraries that are not built with them.

extern "C" {

const char* __lsan_default_options();
const char* __lsan_default_suppressions();
const char* __tsan_default_options();
const char* __tsan_default_suppressions();

// What a program prints is compared; the suppressions that were used are not part of it.
const char* __lsan_default_options() { return "print_suppressions=0"; }
const char* __tsan_default_options() { return "print_suppressions=0"; }

// What it reads from the system's configuration it keeps for the life of the program, behind pointers that are not
// recognised as such: the same few bytes however many texts are drawn.
const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

// The font library reads that configuration in a thread of its own, and hands it over with locks that are not seen; so
// do the library that the synthesiser brings along and the one that mixes sound.
const char* __tsan_default_suppressions() { return "race:libfontconfig\nrace:libpango\nrace:libgomp\nrace:libopenal"; }
}
