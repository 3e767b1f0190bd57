// Linked into every fuzz target and every corpus replay: fontconfig, which Cairo calls when the emulator
// draws text, keeps its configuration and caches until the process ends, out of LeakSanitizer's sight. They
// are not leaks of ours, and a target run as `./xFuzzer corpus` must not report them (libFuzzer would write
// the empty input out as a "leak" unit), so the suppression travels inside the program rather than in an
// option its user has to remember; the table of suppressions used is not printed either.
extern "C" __attribute__((visibility("default"), used)) const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}

extern "C" __attribute__((visibility("default"), used)) const char* __lsan_default_options() {
  return "print_suppressions=0";
}
