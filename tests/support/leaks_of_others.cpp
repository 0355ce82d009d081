// Libraries below the screen toolkit keep what they have read until the process ends; the leak checker need not tell
// us.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
