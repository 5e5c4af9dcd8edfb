// Psalm 119 of a program folder's KJV, as the main window shows it, for pictures of printing.
//   print_psalm119 PROGRAM_FOLDER               the Print window, then its preview
//   print_psalm119 PROGRAM_FOLDER --pdf FILE    writes the PDF with the default margins
// Settings go to a temporary folder, so the program folder's window.ini stays as it was.
#include "app/frmPrint.h"
#include "platform/RichTextBox.h"
#include "platform/basPrintRTF.h"
#include "scripture/PassageFormatter.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/basSettings.h"

#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: print_psalm119 PROGRAM_FOLDER [--pdf FILE]\n");
        return 2;
    }
    clsBible bible;
    bible.setVersionPath(arguments.at(1) + QStringLiteral("/KJV"));
    platform::RichTextBox view;
    TextStyle style = DisplaySettings().passage;
    ApplyRichTextStyle(&view, style);
    view.setTextRTF(
        PassageFormatter::ToRichText(bible.Passagebystandard(QStringLiteral("Psalms 119")), true));
    const QString title = QStringLiteral("Psalms 119");

    if (arguments.size() >= 4 && arguments.at(2) == QStringLiteral("--pdf")) {
        platform::PrintJob job;
        job.title = title;
        QString error;
        const int sheets = platform::PrintPdf(*view.document(), job, arguments.at(3), &error);
        std::printf("%d pages\n", sheets);
        if (sheets == 0)
            std::fprintf(stderr, "%s\n", qPrintable(error));
        return sheets > 0 ? 0 : 1;
    }

    QTemporaryDir settings;
    ProgramSettings::instance().setProgramFolder(settings.path());
    frmPrint dialog(view.document(), title);
    QTimer::singleShot(800, &dialog, [&dialog] {
        dialog.findChild<QPushButton *>(QStringLiteral("cmdPreview"))->click();
    });
    dialog.exec();
    return 0;
}
