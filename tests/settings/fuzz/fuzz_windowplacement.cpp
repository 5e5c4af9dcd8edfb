// Window placement read from a "window.ini" of any text (the input): the rectangle fitted on a
// screen lies on it at no less than the smallest size; a window restored from the file lies on the
// screen, and closing it writes back where it is, keeping every value that it was not moved from.
#include "platform/Twips.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "tests/fuzz/FuzzApplication.h"
#include "tests/fuzz/FuzzSupport.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWidget>

#include <cstdint>

namespace {

const QString kSection = QStringLiteral("main");
const QSize kMinimum(200, 150);

void checkFitted(const QRect &outer, const QRect &available)
{
    const QRect fitted = WindowPlacement::FitOnScreen(outer, available, kMinimum);
    FUZZ_CHECK(fitted.width() >= kMinimum.width() && fitted.height() >= kMinimum.height());
    FUZZ_CHECK(available.contains(fitted));
    if (available.contains(outer) && outer.width() >= kMinimum.width() &&
        outer.height() >= kMinimum.height())
        FUZZ_CHECK(fitted == outer);
}

// The placement keys of the section; a missing one reads as -1.
QList<int> readPlacement(const clsIni &ini)
{
    QList<int> values;
    for (const char *key : {"left", "top", "width", "height"})
        values.append(ini.Data(kSection, QString::fromLatin1(key)));
    return values;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    fuzz::ensureApplication<QApplication>();
    if (size > 8192)
        return 0;
    const QString folder = fuzz::freshFolder(QStringLiteral("placement"));
    fuzz::write(folder + QStringLiteral("/window.ini"),
                QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    ProgramSettings &settings = ProgramSettings::instance();
    settings.setProgramFolder(folder);
    clsIni &ini = settings.Ini();
    settings.rememberWindows = ini.Data(QString(), QStringLiteral("rememberwindowsetting")) != 0;
    const int state = ini.Data(kSection, QStringLiteral("windowstate"));

    QWidget window;
    window.setMinimumSize(kMinimum);
    auto *layout = new QVBoxLayout(&window);
    auto *splitter = new QSplitter(&window);
    for (int i = 0; i < 3; ++i)
        splitter->addWidget(new QLabel(QStringLiteral("pane"), splitter));
    layout->addWidget(splitter);
    auto *tabs = new QTabWidget(&window);
    for (const QString &name : {QStringLiteral("Notes"), QStringLiteral("Commentary")})
        tabs->addTab(new QLabel(name), name);
    layout->addWidget(tabs);
    const int tx = platform::TwipsPerPixelX(&window);
    const int ty = platform::TwipsPerPixelY(&window);

    const QList<int> before = readPlacement(ini);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect outer(before[0] / tx, before[1] / ty, before[2] / tx, before[3] / ty);
    checkFitted(outer, screen);
    checkFitted(outer, QRect(-before[0], -before[1], 4 * kMinimum.width(), 4 * kMinimum.height()));

    WindowPlacement placement(&window, kSection,
                              WindowPlacement::Position | WindowPlacement::Size |
                                  WindowPlacement::State);
    placement.addSplitter(splitter, {QStringLiteral("split0"), QStringLiteral("split1")});
    placement.addTab(tabs);
    placement.restore();
    const bool restored = settings.rememberWindows && (state == 0 || state == 2);
    if (restored && !window.isMaximized())
        FUZZ_CHECK(screen.contains(window.frameGeometry()));

    placement.save();
    const QList<int> after = readPlacement(ini);
    if (window.isMaximized()) {
        // A maximised window keeps its last normal placement.
        FUZZ_CHECK(after == before);
        return 0;
    }
    const QRect now = window.frameGeometry();
    const int pixels[] = {now.left(), now.top(), now.width(), now.height()};
    for (int i = 0; i < 4; ++i) {
        const int perPixel = i % 2 == 0 ? tx : ty;
        FUZZ_CHECK(after[i] / perPixel == pixels[i]);
        if (restored && before[i] / perPixel == pixels[i])
            FUZZ_CHECK(after[i] == before[i]);
    }
    return 0;
}
