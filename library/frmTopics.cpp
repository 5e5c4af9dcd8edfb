#include "library/frmTopics.h"

#include "library/MainWindowLink.h"
#include "library/ReferencePassages.h"
#include "scripture/PassageFormatter.h"

frmTopics::frmTopics(MainWindowLink &main, QWidget *parent)
    : ReferenceListWindow(
          {.file = DataFiles::File::Topics,
           .objectName = QStringLiteral("frmTopics"),
           .caption = tr("Bible Topics"),
           .section = QStringLiteral("topics"),
           // Unlike the stories window, this one has always opened where the system puts it.
           .placementParts = 0,
           .listName = QStringLiteral("lstTopics"),
           .listTip = tr("Select topic to see its text in the main bible window"),
           .queryTip = tr("Enter word(s) to search for in the topics"),
           .browseCaption = tr("Topics")},
          main, parent)
{
}

void frmTopics::nameSelected(int record)
{
    const QString text = ReferencePassages::TopicText(main().Bible(), entries(), record);
    main().ShowPassage(PassageFormatter::ForView(text),
                       ReferencePassages::TopicTitle(entries(), record));
}
