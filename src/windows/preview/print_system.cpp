#include "preview/print_system.h"

#include <cups/cups.h>

#include <memory>

namespace lorvan {
namespace {

struct FreeDestination {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
struct FreeInformation {
    void operator()(cups_dinfo_t* information) const { cupsFreeDestInfo(information); }
};
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;
using Information = std::unique_ptr<cups_dinfo_t, FreeInformation>;

/// No password is asked for: the library would do so on the terminal.
const char* noPassword(const char*, http_t*, const char*, const char*, void*)
{
    return nullptr;
}

[[noreturn]] void fail()
{
    throw PrintJobError(cupsLastErrorString());
}

QString option(const cups_dest_t& destination, const char* name)
{
    return QString::fromUtf8(cupsGetOption(name, destination.num_options, destination.options));
}

QString nameOf(const cups_dest_t& destination)
{
    const QString name = QString::fromUtf8(destination.name);
    return destination.instance ? name + u'/' + QString::fromUtf8(destination.instance) : name;
}

Destination find(const QString& printer)
{
    const QByteArray name = printer.section(u'/', 0, 0).toUtf8();
    const QByteArray instance = printer.section(u'/', 1).toUtf8();
    Destination found(
        cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.constData(), instance.isEmpty() ? nullptr : instance.constData()));
    if (!found)
        fail();
    return found;
}

/// The settings that the user has made for the printer on this machine; the server has its own.
class JobOptions {
public:
    explicit JobOptions(const cups_dest_t& destination)
    {
        for (int index = 0; index < destination.num_options; ++index) {
            const cups_option_t& each = destination.options[index];
            m_count = cupsAddOption(each.name, each.value, m_count, &m_options);
        }
        m_count = cupsAddOption(CUPS_MEDIA, CUPS_MEDIA_A4, m_count, &m_options);
    }
    ~JobOptions() { cupsFreeOptions(m_count, m_options); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] cups_option_t* options() const { return m_options; }

private:
    int m_count = 0;
    cups_option_t* m_options = nullptr;
};

/// Withdraws a job that is not finished.
class Job {
public:
    Job(cups_dest_t* destination, cups_dinfo_t* information, const QByteArray& title)
        : m_destination(destination)
        , m_information(information)
    {
        const JobOptions options(*destination);
        const ipp_status_t created = cupsCreateDestJob(CUPS_HTTP_DEFAULT, m_destination, m_information, &m_id,
            title.constData(), options.count(), options.options());
        if (created > IPP_STATUS_OK_CONFLICTING)
            fail();
    }
    ~Job()
    {
        if (!m_isFinished)
            cupsCancelDestJob(CUPS_HTTP_DEFAULT, m_destination, m_id);
    }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    void send(const QByteArray& title, const QByteArray& pdf)
    {
        const bool isSent = cupsStartDestDocument(CUPS_HTTP_DEFAULT, m_destination, m_information, m_id,
                                title.constData(), CUPS_FORMAT_PDF, 0, nullptr, 1)
                == HTTP_STATUS_CONTINUE
            && cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.constData(), static_cast<size_t>(pdf.size()))
                == HTTP_STATUS_CONTINUE
            && cupsFinishDestDocument(CUPS_HTTP_DEFAULT, m_destination, m_information) <= IPP_STATUS_OK_CONFLICTING;
        if (!isSent)
            fail();
        m_isFinished = true;
    }

private:
    cups_dest_t* m_destination;
    cups_dinfo_t* m_information;
    int m_id = 0;
    bool m_isFinished = false;
};

} // namespace

std::vector<Printer> installedPrinters()
{
    cupsSetPasswordCB2(noPassword, nullptr);
    cups_dest_t* destinations = nullptr;
    const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &destinations);
    std::vector<Printer> printers;
    for (int index = 0; index < count; ++index) {
        const cups_dest_t& each = destinations[index];
        printers.push_back(
            {nameOf(each), option(each, "printer-info"), option(each, "printer-location"), each.is_default != 0});
    }
    cupsFreeDests(count, destinations);
    return printers;
}

void printPdf(const QString& printer, const QString& title, const QByteArray& pdf)
{
    cupsSetPasswordCB2(noPassword, nullptr);
    const Destination destination = find(printer);
    const Information information(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, destination.get()));
    if (!information)
        fail();
    const QByteArray name = title.trimmed().toUtf8();
    Job(destination.get(), information.get(), name).send(name, pdf);
}

} // namespace lorvan
