#pragma once

#include "start/program.h"
#include "support/temporary_book.h"
#include "windows/box_script.h"
#include "windows/driver.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace lorvan::test {

/// The whole program on a book of its own, from the path file on. Its day is 15 March 2024.
class ProgramTest : public testing::Test {
protected:
    ProgramTest();

    /// Writes the path file; the text as it stands, in bytes of the Greek code page.
    void writePathFile(const QByteArray& content) const;
    [[nodiscard]] QString pathFileName() const { return programFolder.filePath(QStringLiteral("DIADROMH.DAT")); }

    /// Starts the program: true when the sign-in window shows.
    bool start();
    /// Starts it and waits for the sign-in window, which must come.
    void startToSignIn();
    /// Types name and password into the sign-in window and presses Enter on its button.
    void signIn(const QString& name, const QString& password) const;
    void signInAsSofia() const { signIn(QStringLiteral("Σοφία"), QStringLiteral("μυστικό")); }

    /// True when the program ends its event loop within the scenario or soon after it.
    [[nodiscard]] bool endsIn(const std::function<void()>& scenario) const;

    /// A shown window of the program; null when there is none.
    [[nodiscard]] static QWidget* shownWindow(const QString& objectName);
    [[nodiscard]] static QWidget& loginWindow();

    /// The content of every file in the data folder, by name.
    [[nodiscard]] std::map<QString, QByteArray> files() const;

    TemporaryBook book; ///< Its user Σοφία, with the password μυστικό, has no rights.
    QTemporaryDir programFolder;
    BoxScript boxes;
    std::unique_ptr<Program> program;
};

[[nodiscard]] ExpectedBox bookNotFound(const QString& details);

} // namespace lorvan::test
