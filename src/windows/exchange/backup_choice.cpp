#include "exchange/backup_choice.h"

#include "book/book_files.h"
#include "books/backup_content.h"
#include "look/message_window.h"
#include "preview/folder_dialog.h"

namespace lorvan {

QString askBackup(QWidget* parent, const QString& title, const QString& start)
{
    return askFile(parent, title, QStringLiteral("Αντίγραφα ασφαλείας (*.tar)"), QStringLiteral("tar"), start);
}

bool showBackupAndAsk(QWidget* parent, BackgroundRun& run, const BackupQuestion& question, const BookFiles& place)
{
    BackupContent content;
    const bool isRead = runStoppable(run, parent, {question.title, QStringLiteral("Διαβάζεται το αντίγραφο…"), {}},
        [&](const StepProgress& progress) { content = lookIntoBackup(question.backup, place, progress); });
    return isRead
        && askOkCancel(parent, QMessageBox::Question, question.title, question.text,
            contentLines(content, question.heading).join(u'\n'), DefaultAnswer::No);
}

} // namespace lorvan
