// Passage text of any content turns into rich text without crashing.
#include "scripture/PassageFormatter.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString whole = PassageFormatter::ToRichText(text, true);
    const QString part = PassageFormatter::ToRichText(text, false);
    if (whole.size() < part.size())
        __builtin_trap();
    return 0;
}
