// "general.cfg" and "display.cfg" of any bytes (the input is both files): reading gives the
// records field by field, writing them back changes not a byte of the file, and the look they
// hold goes onto a label and a rich-text view, laid out, without crashing or hanging, whatever
// colour, font name and size the bytes say.
#include "platform/RichTextBox.h"
#include "settings/ProgramSettings.h"
#include "settings/basSettings.h"
#include "tests/fuzz/FuzzApplication.h"
#include "tests/fuzz/FuzzSupport.h"

#include <QApplication>
#include <QLabel>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

// A file read into a record and written back as it stands is unchanged: a record that was read
// gives back its bytes, and a missing one (a short file) is replaced by the defaults.
template <typename Record>
void checkRoundTrip(const QString &path, const QByteArray &before, const Record &record)
{
    const QByteArray after = fuzz::read(path);
    const QByteArray wanted =
        before.size() >= Record::RecordLength ? before : Record::Defaults().toBytes();
    if (after != wanted || record.toBytes().size() != Record::RecordLength) {
        std::fprintf(stderr, "%s was changed by writing back what was read\n", qPrintable(path));
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    fuzz::ensureApplication<QApplication>();
    if (size > 4096)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString folder = fuzz::freshFolder(QStringLiteral("settings"));
    fuzz::write(folder + QStringLiteral("/general.cfg"), input);
    fuzz::write(folder + QStringLiteral("/display.cfg"), input);

    ProgramSettings &settings = ProgramSettings::instance();
    settings.setProgramFolder(folder);
    settings.readSettingsFiles();
    if (!settings.writeGeneralSettings() || !settings.writeDisplaySettings())
        std::abort();
    checkRoundTrip(settings.generalFilePath(), input, settings.general);
    checkRoundTrip(settings.displayFilePath(), input, settings.display);

    QLabel title(QStringLiteral("Genesis 1"));
    ApplyStyle(&title, settings.display.title);
    (void)title.sizeHint();
    platform::RichTextBox passage;
    ApplyRichTextStyle(&passage, settings.display.passage);
    // An empty view takes the colour for what comes next but stays empty.
    if (!passage.Text().isEmpty())
        std::abort();
    passage.setText(QStringLiteral("1 In the beginning"));
    (void)passage.document()->size();
    return 0;
}
