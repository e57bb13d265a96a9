#include "journal/check_code.h"
#include "tools/tool_run.h"

namespace lorvan::test {

TEST(VerifySeal, theScriptOfTheDocumentsTellsWhatWasTamperedWith)
{
    const QTemporaryDir folder;
    const QDate today(2026, 11, 18);
    ASSERT_EQ(runTool(today, "demo|" + folder.filePath("book")).status, ExitStatus::Done);
    const auto tampered = [&folder](const QString& file, const QString& sql) {
        (void)outputOf("sqlcipher", {folder.filePath("book/" + file), "PRAGMA key='TelmaHarbor'; " + sql});
    };
    const auto verify = [&folder](const char* day) {
        QProcess script;
        script.start(VERIFY_SEAL, {folder.filePath("book"), day});
        EXPECT_TRUE(script.waitForFinished());
        return QString::fromUtf8(script.readAllStandardOutput()) + QString::number(script.exitCode());
    };
    const auto answer = [&](const char* content, const char* seal, const char* journal, int status) {
        Connection book = openAt(folder.filePath("book/mapcodes.mdb"));
        return QString("Κωδικός ελέγχου %1, έκδοση 1\nΠεριεχόμενο: %2\nΣφραγίδα: %3\nΗμερολόγιο: %4\n%5")
            .arg(checkCode(valueOf(book, "SELECT hash FROM seals WHERE day=20261110")), content, seal, journal)
            .arg(status);
    };
    const char* const yes = "συμφωνεί";
    const char* const no = "ΔΕΝ συμφωνεί";
    EXPECT_EQ(verify("20261110"), answer(yes, yes, yes, 0));
    EXPECT_EQ(verify("20261118"), "1") << "not closed yet";
    const struct {
        const char *file, *sql, *undo, *content, *seal, *journal;
    } cases[] = {
        {"lorvan.mdb", "UPDATE kinhseis SET perigrafh=perigrafh||char(10,92) WHERE hmeromhnia=20261110",
            "UPDATE kinhseis SET perigrafh=substr(perigrafh,1,length(perigrafh)-2) WHERE hmeromhnia=20261110", no, yes,
            yes},
        {"mapcodes.mdb", "UPDATE seals SET expense=expense+1 WHERE day=20261110",
            "UPDATE seals SET expense=expense-1 WHERE day=20261110", yes, no, yes},
        {"mapcodes.mdb", "UPDATE seals SET carried=carried+1 WHERE day=20261110",
            "UPDATE seals SET carried=carried-1 WHERE day=20261110", yes, no, yes},
        {"mapcodes.mdb", "UPDATE seals SET counted=hash, hash='x' WHERE day=20261110",
            "UPDATE seals SET hash=counted, counted=NULL WHERE day=20261110", yes, no, yes},
        {"lorvan.mdb", "UPDATE journal SET user='Άλλος' WHERE action='seal'", "SELECT 1", yes, yes, no},
    };
    for (const auto& [file, sql, undo, content, seal, journal] : cases) {
        tampered(file, sql);
        EXPECT_EQ(verify("20261110"), answer(content, seal, journal, 1)) << sql;
        tampered(file, undo);
    }
}

} // namespace lorvan::test
