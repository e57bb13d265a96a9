#include "book/startup.h"

#include "book/book_files.h"
#include "book/failure_text.h"
#include "book/path_file.h"
#include "book/pending_restore.h"
#include "platform/amount_text.h"
#include "platform/windows1253.h"

#include <cmath>

namespace lorvan {
namespace {

/// True if the whole text is a number, in Greek form or with a decimal point.
bool isNumeric(const QString& text)
{
    bool plain = false;
    const double value = text.toDouble(&plain);
    return (plain && std::isfinite(value)) || readAmount(text).outcome != AmountReading::Outcome::NotANumber;
}

} // namespace

bool namesFolder(const DataFolderSettings& settings)
{
    return !settings.dataFolder.isEmpty() && !isNumeric(settings.dataFolder);
}

StartDecision decideStart(const QString& programFolder)
{
    const PathFile pathFile(programFolder);
    StartDecision decision{StartOutcome::SignIn, pathFile.read(), {}};
    QString& folder = decision.settings.dataFolder;
    if (!namesFolder(decision.settings)) {
        folder = programFolder;
        pathFile.writeFolder(programFolder);
        decision.outcome = fitsWindows1253(programFolder) ? StartOutcome::PathWritten : StartOutcome::PathUnwritable;
        return decision;
    }
    const BookFiles files(folder);
    try {
        finishRestore(files);
    } catch (const RestoreUnfinished& failure) {
        decision.outcome = StartOutcome::RestoreUnfinished;
        decision.trouble = failureText(failure);
        return decision;
    }
    if (!BookFiles::exists(files.mainDatabase()))
        decision.outcome = StartOutcome::DatabaseMissing;
    else if (files.isOldFormat())
        decision.outcome = StartOutcome::OldFormat;
    return decision;
}

} // namespace lorvan
