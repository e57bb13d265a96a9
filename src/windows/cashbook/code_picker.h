#pragma once

#include "codes/code_catalogue.h"

#include <QObject>

#include <optional>
#include <vector>

namespace lorvan {

class CodeChooser;
class CodeOfferList;
struct EntryContent;

/// The choice of a movement's code in `DBCombo1`: from the list of active codes, by typing its number and Enter, or by
/// typing the beginning of a word and choosing among what it offers.
class CodePicker : public QObject {
    Q_OBJECT

public:
    explicit CodePicker(CodeChooser* chooser);

    /// Refills the list; the text and the selected code are kept.
    void setCodes(std::vector<MovementCode> codes);

    /// The selected code; 0 if none is.
    [[nodiscard]] qint32 code() const { return m_selected; }
    /// True if the selected code is an income code.
    [[nodiscard]] bool isIncome() const { return m_income; }

    /// Selects a code without emitting a signal, whether it is in the list or not: the code of a loaded movement.
    void show(const MovementCode& code);
    void clear();

    /// Copies the chooser's text and the selected code into `content`.
    void takeContent(EntryContent& content) const;
    /// Restores them, without emitting a signal.
    void setContent(const EntryContent& content);

    /// To be called after the focus has left: the number of an existing code selects it, anything else is ignored.
    void settle();

Q_SIGNALS:
    void unresolved(); ///< The chooser was left with a text that selects no code.
    void chosen(); ///< The user has selected a code.
    void notUnderstood(); ///< Enter with no text or with something that is not a number; its message has been shown.
    void entered(); ///< Enter has selected a code.

private:
    void offer();
    void pick(int row);
    void enter();
    void select(const MovementCode& code);
    [[nodiscard]] const MovementCode* find(std::optional<qint32> code) const;
    void say(const QString& text);

    CodeChooser* m_chooser;
    CodeOfferList* m_offers;
    std::vector<MovementCode> m_codes;
    qint32 m_selected = 0;
    bool m_income = false;
};

} // namespace lorvan
