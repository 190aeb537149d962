// What the leak sanitizer must not report: memory that libsigrok itself loses.

extern "C" {

/// Whole stacks, so that the suppressions find the function.
__attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

/// The drivers of serial instruments forget their port when no instrument answers on it.
__attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:sr_driver_scan\n";
}
}
