#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace lorvan {

/// Filters a stream that may end on a terminal: names of files and contents of a book must not control it. Control
/// characters are replaced as by printable(), except line ends, tabs and what a progress bar needs: a carriage return,
/// and the sequence after it that erases the line.
class ScreenFilter : public std::streambuf {
public:
    /// Takes the stream's place during the lifetime of the object.
    explicit ScreenFilter(std::ostream& stream);
    ~ScreenFilter() override;
    ScreenFilter(const ScreenFilter&) = delete;
    ScreenFilter& operator=(const ScreenFilter&) = delete;

protected:
    int_type overflow(int_type byte) override;
    std::streamsize xsputn(const char* bytes, std::streamsize size) override;
    int sync() override;

private:
    void pass();

    std::ostream& m_stream;
    std::streambuf* m_target;
    std::string m_waiting; ///< Until a line ends or the stream is flushed.
};

} // namespace lorvan
