#pragma once

#include <exception>
#include <functional>

namespace lorvan {

/// Called while a report is built, every thousand rows, with the number of rows so far; returning false cancels the
/// report. May be empty. It is called while the report is reading and must not write to the same book.
using ReportProgress = std::function<bool(int rows)>;

/// A report was cancelled while it was built. Nothing of it is kept.
class ReportCancelled : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "report cancelled"; }
};

} // namespace lorvan
