#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <stdexcept>

namespace lorvan {

/// A command line that does not match what the command takes. what() says in Greek what is wrong with it.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& message);
};

/// The words after a command's name, taken one at a time. All operations throw UsageError.
class Arguments {
public:
    explicit Arguments(QStringList words);

    /// The value of `--name VALUE` or `--name=VALUE`, `name` including its dashes; no value if the option is not given.
    [[nodiscard]] std::optional<QString> takeOption(const QString& name);

    /// True if the option, which has no value, is given.
    [[nodiscard]] bool takeFlag(const QString& name);

    /// The next word that is not an option; `what` names it in the error if it is missing. An empty word counts as
    /// missing.
    [[nodiscard]] QString takeWord(const QString& what);

    /// takeWord() for the folder of a book, as an absolute path.
    [[nodiscard]] QString takeBookFolder();

    /// The next word, if there is one.
    [[nodiscard]] std::optional<QString> takeOptionalWord();

    /// To be called when everything has been taken: anything left is refused.
    void finish() const;

private:
    QStringList m_words;
};

} // namespace lorvan
