// Linked into tests that load libVLC's plugins or a graphics driver: those keep memory to the end
// of the process, in modules that are gone when the leaks are counted, so that no list could name
// them. libVLC's plugin for HLS (3.0.24) also frees what it got from operator new.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
  return "detect_leaks=0:alloc_dealloc_mismatch=0";
}
