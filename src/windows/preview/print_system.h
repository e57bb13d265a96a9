#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>
#include <vector>

namespace lorvan {

/// A printer as the system knows it.
struct Printer {
    QString name;
    QString description; ///< In words, for people; may be empty.
    QString location;
    bool isDefault = false;
};

/// The print system has not taken a job. what() holds its own words, in UTF-8.
class PrintJobError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Both ask the print system, which may be another computer: they can take seconds, and run on any thread.

/// None where there is no print system.
[[nodiscard]] std::vector<Printer> installedPrinters();

/// Hands a PDF over as one job, with the printer's own settings. Comes back when the print system has taken all of it.
/// Throws PrintJobError.
void printPdf(const QString& printer, const QString& title, const QByteArray& pdf);

} // namespace lorvan
