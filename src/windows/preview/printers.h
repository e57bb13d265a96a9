#pragma once

#include "preview/print_system.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace lorvan {

/// The printers of the machine and the current one among them. The print system is asked on a thread of its own, so
/// that no window waits for it.
class Printers : public QObject {
    Q_OBJECT

public:
    /// What is asked; a test may give its own.
    using Question = std::function<std::vector<Printer>()>;

    explicit Printers(Question question = installedPrinters, QObject* parent = nullptr);
    ~Printers() override; ///< Waits a moment for an answer that is under way, and then for nothing.

    /// Asks anew, unless a question is under way.
    void ask();

    [[nodiscard]] bool isKnown() const { return m_printers.has_value(); } ///< An answer has come once.
    [[nodiscard]] const std::vector<Printer>& all() const; ///< As of the last answer.

    /// The name of the one chosen, or else of the system's default one, or else of the first; empty without printers.
    [[nodiscard]] QString currentName() const;
    void choose(const QString& name);

Q_SIGNALS:
    void answered(); ///< After each answer, also one that is as before.

private:
    struct Mailbox;

    void take(std::vector<Printer> printers);

    const Question m_question;
    std::shared_ptr<Mailbox> m_mailbox; ///< Of the question under way.
    std::optional<std::vector<Printer>> m_printers;
    QString m_chosen;
};

} // namespace lorvan
