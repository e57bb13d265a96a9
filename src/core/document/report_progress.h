#pragma once

#include <concepts>
#include <exception>
#include <functional>
#include <utility>

namespace lorvan {

class ReportDocument;

/// What is told while a report is built; by default nothing. It is called while the report is reading and must not
/// write to the same book.
class ReportProgress {
public:
    /// Called every thousand rows, with the number of rows so far; returning false cancels the report.
    using Question = std::function<bool(int rows)>;
    /// Called with the first thousand rows of a longer report, whose first page is then certain. Again if the report
    /// has to be read again.
    using Reader = std::function<void(const ReportDocument& beginning)>;

    ReportProgress() = default;
    template <std::predicate<int> Ask>
    ReportProgress(Ask goesOn, Reader begun = {})
        : m_goesOn(std::move(goesOn))
        , m_begun(std::move(begun))
    {
    }

    [[nodiscard]] bool operator()(int rows) const { return !m_goesOn || m_goesOn(rows); }
    void begun(const ReportDocument& beginning) const
    {
        if (m_begun)
            m_begun(beginning);
    }

private:
    Question m_goesOn;
    Reader m_begun;
};

/// A report was cancelled while it was built. Nothing of it is kept.
class ReportCancelled : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "report cancelled"; }
};

} // namespace lorvan
