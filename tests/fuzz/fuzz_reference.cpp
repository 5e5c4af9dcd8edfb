// Typed references of any shape against a small translation: parsing and fetching never crash or
// hang.
#include "FuzzSupport.h"
#include "scripture/ReferenceParser.h"
#include "scripture/clsBible.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    static clsBible *bible = [] {
        const QString root = fuzz::scratch().path() + QStringLiteral("/REF");
        fuzz::write(root + QStringLiteral("/bible.dat"), "Fuzz\r\nOld\r\nNew\r\n");
        fuzz::write(root + QStringLiteral("/oldtest/map.dat"),
                    "\"Genesis\",2\r\n\"Song of Solomon\",1\r\n\"1Kings\",1\r\n");
        fuzz::write(root + QStringLiteral("/newtest/map.dat"), "\"John\",3\r\n");
        const QByteArray chapter = "1 a [b] c\r\n2 d{H1} e\r\n3 f\r\n";
        fuzz::write(root + QStringLiteral("/oldtest/GENESIS.dat"),
                    "CHAPTER 1\r\n" + chapter + "CHAPTER 2\r\n" + chapter);
        fuzz::write(root + QStringLiteral("/oldtest/SONG OF SOLOMON.dat"),
                    "CHAPTER 1\r\n" + chapter);
        fuzz::write(root + QStringLiteral("/oldtest/1KINGS.dat"), "CHAPTER 1\r\n" + chapter);
        fuzz::write(root + QStringLiteral("/newtest/JOHN.dat"), "CHAPTER 1\r\n" + chapter +
                                                                    "chapter 2\r\n" + chapter +
                                                                    "CHAPTER 3\r\n" + chapter);
        auto *b = new clsBible;
        b->setVersionPath(root);
        return b;
    }();
    if (size > 4096)
        return 0;
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    ReferenceParser::Parse(text);
    for (const bool inText : {true, false}) {
        bible->setInTextReference(inText);
        bible->setSeparator(inText ? QStringLiteral("\r\n") : QStringLiteral(" "));
        bible->Passagebystandard(text);
        bible->Standard();
    }
    return 0;
}
