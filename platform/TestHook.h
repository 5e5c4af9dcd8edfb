#pragma once

#include <utility>

// A process-wide replacement for something that would ask the user or the desktop (a dialog, a
// message box, opening a document), so tests can answer instead. Tag keeps the hooks of different
// wrappers apart even when their function types match.
namespace platform {

template <typename Tag, typename Function> class TestHook
{
public:
    static const Function &get() { return slot(); }

    // Installs a hook and returns the one it replaces; an empty function removes it.
    static Function set(Function function)
    {
        Function old = std::move(slot());
        slot() = std::move(function);
        return old;
    }

private:
    static Function &slot()
    {
        static Function function;
        return function;
    }
};

} // namespace platform
