#include "platform/files/settings_store.h"

#include "support/printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <thread>

namespace lorvan::test {

namespace {

class SettingsStoreTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray content() const
    {
        QFile file(store.path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    void edit(const QByteArray& bytes) const
    {
        QFile file(store.path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    const QTemporaryDir folder;
    const SettingsStore store{folder.filePath(QStringLiteral("Lorvan.ini"))};
    const QString section = QStringLiteral("AnalyshFRM");
    const QString key = QStringLiteral("Omada1");
};

} // namespace

TEST_F(SettingsStoreTest, anyTextSurvives)
{
    const QString texts[] = {{}, QStringLiteral(" "), QStringLiteral("( aa_omada=3  or aa_omada=7)"),
        QStringLiteral("0,3,7,"), QStringLiteral("α; β # [γ] = 'δ'"), QStringLiteral("\"Τράπεζα\""),
        QStringLiteral("\"α\", β"), QStringLiteral("C:\\new\\u0041"), QStringLiteral("\"\\u0041\\"),
        QStringLiteral("α\nβ\r\n[γ]\nδ=1\r"), QStringLiteral("\ttab "), QStringLiteral("\u00a0στενό\u2028"),
        QString(QChar(0)) + u'α', QStringLiteral("🐶 ᾳ\u0301"), QString(QChar(0xd83d)) + u'α', QString(100'000, u'ω')};
    std::vector<Setting> all;
    for (const QString& text : texts)
        all.push_back({QStringLiteral("Listes"), QStringLiteral("List1(%1)").arg(all.size()), text});
    store.write(all);
    for (const Setting& setting : all)
        EXPECT_EQ(SettingsStore(store.path()).value(QStringLiteral("lISTES"), setting.key.toUpper()), setting.value);
    EXPECT_EQ(store.value(QStringLiteral("Listes"), key), std::nullopt) << "a section of its own";
    EXPECT_EQ(store.value(section, QStringLiteral("Omada2"), QStringLiteral("Ομαδα 2")), QStringLiteral("Ομαδα 2"));
}

TEST_F(SettingsStoreTest, leavesWhatItDoesNotUnderstand)
{
    const QByteArray before = "\xef\xbb\xbf[analyshfrm]\r\nOMADA1 = \"a\\q\\u00zz\\\r\n=7\r\n\n";
    const QByteArray between = "; Omada2=x\nno entry\n\xcf\xc1=\xff\xfe\n[AnalyshFRM\nomada1=second\n\n"
                               "[Listes] of mine\nList1(0)=0,3,\n[]\n[\n";
    edit("Omada1=outside\n" + before + between + "[ANALYSHFRM]\n omada3 =  (α), β;\"γ\"  \n\n\nlast");
    EXPECT_EQ(store.value(section, key), QStringLiteral("a\\q\\u00zz\\"));
    EXPECT_EQ(store.value(section, QStringLiteral("Omada2")), std::nullopt);
    EXPECT_EQ(store.value(section, QStringLiteral("Omada3")), QStringLiteral("(α), β;\"γ\""));
    EXPECT_EQ(store.value(QStringLiteral("listes"), QStringLiteral("LIST1(0)")), QStringLiteral("0,3,"));
    store.write({{section, QStringLiteral("Omada2"), QStringLiteral("δύο")},
        {QStringLiteral("Omades"), QStringLiteral("Omada(0)"), {}},
        {section, QStringLiteral("omada3"), QStringLiteral("(α), β;\"γ\"")}, {section, key, QStringLiteral("ένα")}});
    EXPECT_EQ(content(),
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
    const std::array<QString, 2> names{QStringLiteral("α"), QStringLiteral("β")};
    std::thread other([&] { writer(names[0]); });
    writer(names[1]);
    other.join();
    for (const QString& name : names) {
        for (int i = 0; i < writes; ++i)
            EXPECT_EQ(store.value(section, name + QString::number(i)), name) << i;
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("Lorvan.ini")});
}

TEST_F(SettingsStoreTest, saysWhenTheFileIsOutOfReach)
{
    const SettingsStore asFolder(folder.path());
    EXPECT_THROW((void)asFolder.value(section, key), SettingsError);
    EXPECT_THROW(asFolder.write({{section, key, {}}}), SettingsError);
    edit("[AnalyshFRM]\n");
    const SettingsStore below(store.path() + QStringLiteral("/Lorvan/Lorvan.ini"));
    EXPECT_EQ(below.value(section, key), std::nullopt);
    EXPECT_THROW(below.write({{section, key, {}}}), SettingsError);
    EXPECT_EQ(content(), "[AnalyshFRM]\n");
}

TEST_F(SettingsStoreTest, liesInTheUsersConfigurationFolder)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    const SettingsStore own;
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SettingsStore().path(), QDir::homePath() + QStringLiteral("/.config/Lorvan/Lorvan.ini"));
    qputenv("XDG_CONFIG_HOME", before);
    own.write({{section, key, QStringLiteral("α")}});
    EXPECT_EQ(own.path(), folder.path() + QStringLiteral("/Lorvan/Lorvan.ini"));
    EXPECT_EQ(SettingsStore(own.path()).value(section, key), QStringLiteral("α"));
}

} // namespace lorvan::test
