#include "platform/files/settings_store.h"

#include "support/files.h"

#include <QTemporaryDir>

#include <array>
#include <thread>

namespace lorvan::test {
namespace {

class SettingsStoreTest : public testing::Test {
protected:
    const QTemporaryDir folder;
    const SettingsStore store{folder.filePath("Lorvan.ini")};
    const QString section = "AnalyshFRM";
    const QString key = "Omada1";
};

} // namespace

TEST_F(SettingsStoreTest, anyTextSurvives)
{
    const QString texts[] = {{}, " ", "( aa_omada=3  or aa_omada=7)", "0,3,7,", "α; β # [γ] = 'δ'", "\"Τράπεζα\"",
        "\"α\", β", "C:\\new\\u0041", "\"\\u0041\\", "α\nβ\r\n[γ]\nδ=1\r", "\ttab ", "\u00a0στενό\u2028",
        QString(QChar(0)) + u'α', "🐶 ᾳ\u0301", QString(QChar(0xd83d)) + u'α', QString(100'000, u'ω')};
    std::vector<Setting> all;
    for (const QString& text : texts)
        all.push_back({"Listes", QStringLiteral("List1(%1)").arg(all.size()), text});
    store.write(all);
    for (const Setting& setting : all)
        EXPECT_EQ(SettingsStore(store.path()).value("lISTES", setting.key.toUpper()), setting.value);
    EXPECT_EQ(store.value("Listes", key), std::nullopt) << "a section of its own";
    EXPECT_EQ(store.value(section, "Omada2", "Ομαδα 2"), "Ομαδα 2");
}

TEST_F(SettingsStoreTest, leavesWhatItDoesNotUnderstand)
{
    const QByteArray before = "\xef\xbb\xbf[analyshfrm]\r\nOMADA1 = \"a\\q\\u00zz\\\r\n=7\r\n\n";
    const QByteArray between = "; Omada2=x\nno entry\n\xcf\xc1=\xff\xfe\n[AnalyshFRM\nomada1=second\n\n"
                               "[Listes] of mine\nList1(0)=0,3,\n[]\n[\n";
    writeFile(
        store.path(), "Omada1=outside\n" + before + between + "[ANALYSHFRM]\n omada3 =  (α), β;\"γ\"  \n\n\nlast");
    EXPECT_EQ(store.value(section, key), "a\\q\\u00zz\\");
    EXPECT_EQ(store.value(section, "Omada2"), std::nullopt);
    EXPECT_EQ(store.value(section, "Omada3"), "(α), β;\"γ\"");
    EXPECT_EQ(store.value("listes", "LIST1(0)"), "0,3,");
    store.write({{section, "Omada2", "δύο"}, {"Omades", "Omada(0)", {}}, {section, "omada3", "(α), β;\"γ\""},
        {section, key, "ένα"}});
    EXPECT_EQ(readFile(store.path()),
        "Omada1=outside\n\xef\xbb\xbf[analyshfrm]\r\nOmada1=ένα\n=7\r\n\n" + between
            + "[ANALYSHFRM]\n omada3 =  (α), β;\"γ\"  \n\n\nlast\nOmada2=δύο\n\n[Omades]\nOmada(0)=\n");
}

TEST_F(SettingsStoreTest, twoWritersLoseNothingOfEachOther)
{
    constexpr int writes = 30;
    const auto writer = [this](const QString& name) {
        for (int i = 0; i < writes; ++i)
            SettingsStore(store.path()).write({{section, name + QString::number(i), name}, {section, key, name}});
    };
    const std::array<QString, 2> names{"α", "β"};
    std::thread other([&] { writer(names[0]); });
    writer(names[1]);
    other.join();
    for (const QString& name : names) {
        for (int i = 0; i < writes; ++i)
            EXPECT_EQ(store.value(section, name + QString::number(i)), name) << i;
    }
    EXPECT_EQ(namesIn(folder.path()), "Lorvan.ini");
}

TEST_F(SettingsStoreTest, saysWhenTheFileIsOutOfReach)
{
    const SettingsStore asFolder(folder.path());
    EXPECT_THROW((void)asFolder.value(section, key), SettingsError);
    EXPECT_THROW(asFolder.write({{section, key, {}}}), SettingsError);
    writeFile(store.path(), "[AnalyshFRM]\n");
    const SettingsStore below(store.path() + "/Lorvan/Lorvan.ini");
    EXPECT_EQ(below.value(section, key), std::nullopt);
    EXPECT_THROW(below.write({{section, key, {}}}), SettingsError);
    EXPECT_EQ(readFile(store.path()), "[AnalyshFRM]\n");
}

TEST_F(SettingsStoreTest, liesInTheUsersConfigurationFolder)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    const SettingsStore own;
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SettingsStore().path(), QDir::homePath() + "/.config/Lorvan/Lorvan.ini");
    qputenv("XDG_CONFIG_HOME", before);
    own.write({{section, key, "α"}});
    EXPECT_EQ(own.path(), folder.path() + "/Lorvan/Lorvan.ini");
    EXPECT_EQ(SettingsStore(own.path()).value(section, key), "α");
}

} // namespace lorvan::test
