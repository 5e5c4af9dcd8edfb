// quillstone [--dir PROGRAM_FOLDER] [TRANSLATION_FOLDER]
#include "app/frmAbout.h"
#include "app/frmLoadVersion.h"
#include "platform/FileSystem.h"
#include "platform/QtMsgBox.h"
#include "settings/ProgramSettings.h"

#include <QApplication>
#include <QLocale>
#include <QStringList>
#include <QTranslator>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillstone Bible System"));
    // The desktop groups the windows under the installed entry and shows its icon for them.
    QApplication::setDesktopFileName(frmAbout::DesktopFileName());
    QApplication::setWindowIcon(frmAbout::AppIcon());

    QStringList args = QApplication::arguments().mid(1);
    QString dirOption;
    if (args.size() >= 2 && args.first() == u"--dir") {
        args.removeFirst();
        dirOption = args.takeFirst();
    }
    ProgramSettings::instance().setProgramFolder(ProgramSettings::ResolveProgramFolder(dirOption));
    platform::InstallWidgetMsgBox();
    // The interface in the reader's language, when a translation of it lies in the program
    // folder's "translations" folder (quillstone_de.qm for German, say); English otherwise.
    QTranslator interface;
    if (interface.load(QLocale(), QStringLiteral("quillstone"), QStringLiteral("_"),
                       ProgramSettings::instance().programFolder() +
                           QStringLiteral("/translations")))
        QApplication::installTranslator(&interface);
    // Saves killed halfway (the power went, the program was ended) leave temporary files.
    const QString folder = ProgramSettings::instance().programFolder();
    for (const QString &sub :
         {QString(), QStringLiteral("notes/oldtest"), QStringLiteral("notes/newtest")})
        platform::RemoveLeftoverTemporaryFiles(sub.isEmpty() ? folder : folder + u'/' + sub);

    frmLoadVersion chooser(args.value(0));
    if (!chooser.Form_Load())
        return 1;
    if (!chooser.Opened())
        chooser.show();
    // For measuring start-up: stop once the first chapter has been painted.
    if (qEnvironmentVariableIsSet("QUILLSTONE_QUIT_AFTER_START")) {
        QApplication::processEvents();
        if (chooser.MainWindow())
            chooser.MainWindow()->repaint();
        return 0;
    }
    return QApplication::exec();
}
