#include "library/PassageView.h"

#include "platform/RichTextBox.h"
#include "scripture/PassageFormatter.h"
#include "scripture/clsBible.h"

void ShowReferenceIn(platform::RichTextBox *view, clsBible &bible, const QString &reference)
{
    view->setTextRTF(PassageFormatter::ToRichText(bible.Passagebystandard(reference), true));
    view->setSelStart(0);
}
