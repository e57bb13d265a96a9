#include "help/help_window.h"
#include "report_pages.h"
#include "windows/main_window_test.h"

#include <QTextBlock>
#include <QTextBrowser>

#include <set>

namespace lorvan::test {
namespace {

class HelpWindowTest : public MainWindowTest {
protected:
    [[nodiscard]] QString chapterAtTop() const
    {
        const auto& text = Driver(*window().findChild<HelpWindow*>()).find<QTextBrowser>("manual");
        return text.textCursor().block().text();
    }
};

} // namespace

TEST_F(HelpWindowTest, opensAtTheChapterOfThePageAndFindsWithoutAccents)
{
    start(allRights);
    const std::pair<int, const char*> pages[] = {
        {CashTab, "Η ημέρα"}, {CodesTab, "Κωδικοί κινήσεων"}, {PrintingTab, "Εκτυπώσεις"}};
    for (const auto& [tab, chapter] : pages) {
        selectTab(tab);
        user().press(Qt::Key_F1);
        EXPECT_EQ(chapterAtTop(), chapter);
        auto& help = *window().findChild<HelpWindow*>();
        waitForActive(help);
        Driver(help).press(Qt::Key_Escape);
        waitForActive(window());
    }
    user().press(Qt::Key_F1);
    auto& help = *window().findChild<HelpWindow*>();
    waitForActive(help);
    const Driver there(help);
    there.press(Qt::Key_F, Qt::ControlModifier);
    there.type("ΠΡΩΤΑ ΔΕΚΑ ΛΕΠΤΑ\n");
    EXPECT_EQ(there.find<QTextBrowser>("manual").textCursor().selectedText(), "πρώτα δέκα λεπτά");
    there.type("ωχ\n");
    EXPECT_EQ(there.text("answer"), "Δεν υπάρχει στις οδηγίες.");
}

TEST(Manual, HasTheChaptersThatF1LeadsToAndGoesToPaperWhole)
{
    const auto manual = readManual();
    std::set<QString> titles;
    for (const ManualChapter& chapter : chaptersOf(*manual))
        EXPECT_TRUE(titles.insert(chapter.title).second) << chapter.title.toStdString();
    for (const char* const wanted : {"Τα πρώτα δέκα λεπτά", "Είσοδος", "Αναζήτηση", "Ιστορικό", "Η προεπισκόπηση",
             "Η εικόνα του βιβλίου και η καρτέλα κωδικού"})
        EXPECT_TRUE(titles.contains(wanted)) << wanted;
    fitPictures(*manual, 300, 1);
    for (const QString& name : picturesOf(*manual))
        EXPECT_EQ(manual->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>().width(), 300) << name;
    const ReportDocument paper = manualDocument();
    QString text;
    for (int number = 0; number < paper.itemCount(); ++number) {
        const ReportItem item = paper.item(number);
        text += (item.isPicture() ? item.pictureFile() : item.cells().join(' ')) + '\n';
        if (item.isPicture())
            titles.erase(paper.item(number - 1).text().toString()); // it does not stand alone
    }
    EXPECT_FALSE(text.contains(QChar::ObjectReplacementCharacter));
    ReportPages pages(paper);
    pages.layOut();
    for (int page = 0; page < pages.pageCount(); ++page) {
        const QString last = pages.textOf(page).trimmed().section('\n', -2, -2).trimmed();
        EXPECT_FALSE(titles.contains(last)) << last.toStdString() << " alone at the foot";
    }
    for (const char* const part :
        {"Τα πρώτα δέκα λεπτά", ":/pictures/search.png\n", "•  ", "να κλείνει το ταμείο δεν κλείνει ημέρες"})
        EXPECT_TRUE(text.contains(part)) << part;
}

} // namespace lorvan::test
