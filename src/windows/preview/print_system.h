#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>
#include <vector>

namespace lorvan {

/// A printer known to the system.
struct Printer {
    QString name;
    QString description; ///< In words; may be empty.
    QString location;
    bool isDefault = false;
};

/// The print system did not accept a job. what() holds its own message, in UTF-8.
class PrintJobError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Both functions ask the print system, which may be on another computer: they can take seconds, and may be called in
/// any thread.

/// Empty if there is no print system.
[[nodiscard]] std::vector<Printer> installedPrinters();

/// Sends a PDF as one job, with the printer's own settings. Returns when the print system has accepted all of it.
/// Throws PrintJobError.
void printPdf(const QString& printer, const QString& title, const QByteArray& pdf);

} // namespace lorvan
