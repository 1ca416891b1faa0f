// The leak check of every test program: on, whatever the environment's
// sanitizer defaults, with exceptions only for what the loader keeps alive
// on purpose.

extern "C" {

// The address checker reads these before the program's own options.
const char* __asan_default_options() { return "detect_leaks=1"; }

// A compiled script outlives its node's shutdown: a plain script only
// loses its node and browser there, and one refused because its node
// already has one stays as it was made. Only built-ins end themselves.
const char* __lsan_default_suppressions() { return "leak:znCPP_SI::initialize\n"; }

}
