// Sanitizer defaults for the libFuzzer build.
//
// The sanitizer records the call stack of every allocation, walking frame pointers. Qt is built
// without them, so past the function that called malloc the walk reads whatever the stack holds,
// and almost every run records stacks never seen before: their store grew by kilobytes a run until
// a long run stopped on the memory limit. Two frames name the allocation and stay the same from run
// to run. To see the whole allocation stack of a crash, replay it with
// ASAN_OPTIONS=malloc_context_size=30:fast_unwind_on_malloc=0 (settings in the environment win).
extern "C" const char *__asan_default_options()
{
    return "malloc_context_size=2";
}
