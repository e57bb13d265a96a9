#pragma once

#include <exception>
#include <functional>

namespace lorvan {

/// Hears from a report under construction how many rows it has, every thousand rows, and answers whether it is to go
/// on. Empty: nobody asks. It is called inside the report's reading and must not write to the same book.
using ReportProgress = std::function<bool(int rows)>;

/// A report was given up while it was built. Nothing of it is left.
class ReportCancelled : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "report cancelled"; }
};

} // namespace lorvan
