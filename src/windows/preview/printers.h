#pragma once

#include "preview/print_system.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace lorvan {

/// The printers of the computer and the current one among them. The print system is asked in a thread of its own, so
/// that no window waits for it.
class Printers : public QObject {
    Q_OBJECT

public:
    /// The function that asks; a test may supply its own.
    using Question = std::function<std::vector<Printer>()>;

    explicit Printers(Question question = installedPrinters, QObject* parent = nullptr);
    ~Printers() override; ///< Waits a moment for an answer that is on its way, but no longer.

    /// Asks again, unless a question is in progress.
    void ask();

    [[nodiscard]] bool isKnown() const { return m_printers.has_value(); } ///< Whether there has been an answer.
    [[nodiscard]] const std::vector<Printer>& all() const; ///< According to the last answer.

    /// The name of the chosen one, else of the system's default one, else of the first; empty if there are no printers.
    [[nodiscard]] QString currentName() const;
    void choose(const QString& name);

Q_SIGNALS:
    void answered(); ///< After each answer, even if nothing has changed.

private:
    struct Mailbox;

    void take(std::vector<Printer> printers);

    const Question m_question;
    std::shared_ptr<Mailbox> m_mailbox; ///< Of the question in progress.
    std::optional<std::vector<Printer>> m_printers;
    QString m_chosen;
};

} // namespace lorvan
