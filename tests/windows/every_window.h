#pragma once

#include "books/book_choice.h"
#include "cashbook/count_window.h"
#include "cashbook/day_calendar.h"
#include "cashbook/tape_window.h"
#include "codes/omada_kvdikvn.h"
#include "door/backup_window.h"
#include "door/books_window.h"
#include "door/first_user_window.h"
#include "door/new_book_window.h"
#include "door/older_book_window.h"
#include "door/report_window.h"
#include "figures/card_window.h"
#include "figures/picture_window.h"
#include "help/help_window.h"
#include "journal/journal_window.h"
#include "main/backup_now_window.h"
#include "main/check_window.h"
#include "main/month_window.h"
#include "main/open_days_list.h"
#include "preview/ektypvsh.h"
#include "preview/printer_choice.h"
#include "preview/progress_window.h"
#include "preview/report_saver.h"
#include "preview/save_dialog.h"
#include "printing/analysh_frm.h"
#include "printing/epilogh_omadvn.h"
#include "printing/option_question.h"
#include "search/search_window.h"
#include "start/fr_ervthsh_update.h"
#include "support/temporary_book.h"
#include "users/login.h"

#include <functional>

namespace lorvan::test {

using WindowVisit = std::function<void(QWidget& window)>;

/// Every window beside the sign-in and the main one, on that book, one after the other.
inline void visitWindowsBeside(const TemporaryBook& book, const WindowVisit& visit)
{
    Connection main = book.openMain();
    const SettingsStore settings(book.path("Lorvan.ini"));
    const BookFiles files = book.files();
    const QDate day(2024, 3, 15);
    Printers printers([] { return std::vector<Printer>(); });
    ReportSaver saver;
    const auto show = [&visit](QWidget&& window) { visit(window); };
    show(OmadaKvdikvn(main, byAll(), [](QWidget*) { return true; }));
    show(OpenDaysList({}, nullptr));
    show(CheckWindow(
        files, testKeys(), byAll(), [](QWidget*) { return true; }, nullptr));
    show(FR_ErvthshUpdate(fixedClock()));
    show(AnalyshFRM(main, settings, "1/3/2024"));
    show(Ervthsh());
    show(FormaTajinomhshs());
    show(EpiloghOmadvn({}, settings));
    show(Ektypvsh(printers, saver));
    show(PrinterChoice(printers, nullptr));
    show(ProgressWindow({"Εκτύπωση", "Διαβάζονται οι κινήσεις", "Γραμμές"}, nullptr));
    show(SaveDialog("Αποθήκευση", {{"Έγγραφο PDF (*.pdf)", "pdf"}}, nullptr));
    show(JournalWindow(files, testKeys(), fixedClock(), {}, nullptr));
    show(SearchWindow(files, testKeys(), fixedClock(), {}, nullptr));
    show(PictureWindow(files, testKeys(), fixedClock(), {}, nullptr));
    show(CardWindow(files, testKeys(), nullptr));
    show(HelpWindow([](QWidget*) {}, nullptr));
    show(TapeWindow({}, nullptr));
    show(DayCalendar(
        day, day, [](QDate, QDate) { return std::vector<CalendarDay>(); }, nullptr));
}

/// The windows of the door, the sign-in, and those that wait for an answer of their own.
inline void visitWindowsOfTheDoor(const TemporaryBook& book, const WindowVisit& visit)
{
    const auto show = [&visit](QWidget&& window) { visit(window); };
    const BookChoice choice(book.path("lorvan"), KnownBooks(SettingsStore(book.path("Lorvan.ini"))));
    const Clock clock = fixedClock();
    show(Login(book.files(), testKeys(), clock));
    show(BooksWindow(choice, clock));
    show(NewBookWindow(fixedClock(), nullptr));
    show(FirstUserWindow(book.files(), fixedClock(), nullptr));
    show(OlderBookWindow(nullptr));
    show(BackupWindow(fixedClock(), {}, nullptr));
    show(ReportWindow("Μεταφορά", "Κινήσεις: 12", nullptr));
    show(MonthWindow(book.files(), testKeys(), "Κεντρικό", fixedClock(), nullptr));
    show(BackupNowWindow(book.files(), testKeys(), fixedClock(), nullptr));
    show(CountWindow(QDate(2024, 3, 15), Currency(), {}, nullptr));
}

} // namespace lorvan::test
