// What the desktop's registry of sources subscribes to on a thread that it ends is freed by nobody.
// Told from our own leaks by its callers, which only the slow way up the stack finds.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions() {
    return "leak:e_dbus_object_manager_client_new_for_bus_sync\n";
}

extern "C" [[gnu::visibility("default")]] const char* __asan_default_options() {
    return "fast_unwind_on_malloc=0";
}
