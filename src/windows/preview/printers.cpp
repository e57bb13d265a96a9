#include "preview/printers.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace lorvan {

namespace {

constexpr std::chrono::milliseconds patienceAtEnd{300};

} // namespace

/// Shared with the thread that asks, which may outlive the printers.
struct Printers::Mailbox {
    std::mutex mutex;
    std::condition_variable delivered;
    Printers* receiver = nullptr;
    bool isDelivered = false;
};

Printers::Printers(Question question, QObject* parent)
    : QObject(parent)
    , m_question(std::move(question))
{
}

Printers::~Printers()
{
    if (!m_mailbox)
        return;
    std::unique_lock lock(m_mailbox->mutex);
    m_mailbox->receiver = nullptr;
    m_mailbox->delivered.wait_for(lock, patienceAtEnd, [this] { return m_mailbox->isDelivered; });
}

void Printers::ask()
{
    if (m_mailbox)
        return;
    m_mailbox = std::make_shared<Mailbox>();
    m_mailbox->receiver = this;
    std::thread([mailbox = m_mailbox, question = m_question] {
        std::vector<Printer> printers = question();
        const std::lock_guard lock(mailbox->mutex);
        if (Printers* const receiver = mailbox->receiver) {
            QMetaObject::invokeMethod(
                receiver, [receiver, printers] { receiver->take(printers); }, Qt::QueuedConnection);
        }
        mailbox->isDelivered = true;
        mailbox->delivered.notify_all();
    }).detach();
}

void Printers::take(std::vector<Printer> printers)
{
    m_mailbox.reset();
    m_printers = std::move(printers);
    Q_EMIT answered();
}

const std::vector<Printer>& Printers::all() const
{
    static const std::vector<Printer> none;
    return m_printers ? *m_printers : none;
}

QString Printers::currentName() const
{
    const std::vector<Printer>& printers = all();
    const auto chosen =
        std::find_if(printers.begin(), printers.end(), [this](const Printer& each) { return each.name == m_chosen; });
    if (chosen != printers.end())
        return chosen->name;
    const auto standard =
        std::find_if(printers.begin(), printers.end(), [](const Printer& each) { return each.isDefault; });
    if (standard != printers.end())
        return standard->name;
    return printers.empty() ? QString() : printers.front().name;
}

void Printers::choose(const QString& name)
{
    m_chosen = name;
}

} // namespace lorvan
