// The floor for start-up: a Qt program that shows one rich-text view with a chapter's worth of
// text and stops once it has been painted, as the program does with QUILLSTONE_QUIT_AFTER_START.
#include <QApplication>
#include <QTextEdit>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QTextEdit view;
    QString text;
    for (int verse = 1; verse <= 31; ++verse)
        text += QStringLiteral("%1 And God said, Let there be light: and there was light.\n")
                    .arg(verse);
    view.setPlainText(text);
    view.resize(1000, 720);
    view.show();
    QApplication::processEvents();
    view.repaint();
    return 0;
}
