#include "preview/save_dialog.h"

#include "look/icons.h"
#include "look/window_placement.h"

#include <QAbstractFileIconProvider>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

#include <utility>

namespace lorvan {
namespace {

constexpr QSize firstSize{760, 480};
constexpr int nameColumnWidth = 300;
constexpr int placesWidth = 150;

class LineIcons : public QAbstractFileIconProvider {
public:
    [[nodiscard]] QIcon icon(IconType type) const override
    {
        switch (type) {
        case Folder:
        case Desktop:
            return themedIcon(QStringLiteral("folder"), ColourRole::Text);
        case File:
            return themedIcon(QStringLiteral("file"), ColourRole::Text);
        default:
            return themedIcon(QStringLiteral("computer"), ColourRole::Text);
        }
    }
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
    [[nodiscard]] QString type(const QFileInfo& file) const override
    {
        return file.isDir() ? QStringLiteral("Φάκελος") : QStringLiteral("Αρχείο ") + file.suffix().toUpper();
    }
};

/// Sizes and dates in the Greek format, whatever the machine's own language.
class GreekFiles : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        enum Column { Size = 1, Modified = 3 };
        const auto* const files = qobject_cast<const QFileSystemModel*>(sourceModel());
        if (role != Qt::DisplayRole || !files)
            return QIdentityProxyModel::data(index, role);
        const QModelIndex file = mapToSource(index);
        if (index.column() == Modified)
            return files->lastModified(file).toString(QStringLiteral("dd-MM-yyyy HH:mm"));
        if (index.column() == Size)
            return files->isDir(file) ? QString()
                                      : QLocale().toString((files->size(file) + 1023) / 1024) + QStringLiteral(" KB");
        return QIdentityProxyModel::data(index, role);
    }
};

} // namespace

SaveDialog::SaveDialog(const QString& title, const std::vector<FileKind>& kinds, QWidget* parent)
    : QFileDialog(parent, title)
{
    static LineIcons icons;
    setObjectName(QStringLiteral("saveFile"));
    setOption(DontUseNativeDialog);
    setAcceptMode(AcceptSave);
    setIconProvider(&icons);
    setProxyModel(new GreekFiles(this));
    QStringList filters;
    for (const FileKind& kind : kinds)
        filters += kind.text;
    setNameFilters(filters);
    setDefaultSuffix(kinds.front().suffix);
    connect(this, &QFileDialog::filterSelected, this, [this, kinds](const QString& filter) {
        for (const FileKind& kind : kinds) {
            if (kind.text == filter)
                setDefaultSuffix(kind.suffix);
        }
    });
    dress();
    sizeWithin(this, firstSize);
}

void SaveDialog::dress()
{
    for (const auto& [button, icon] : std::initializer_list<std::pair<const char*, const char*>>{{"backButton", "prev"},
             {"forwardButton", "next"}, {"toParentButton", "up"}, {"newFolderButton", "newfolder"},
             {"listModeButton", "list"}, {"detailModeButton", "table"}}) {
        if (auto* const found = findChild<QToolButton*>(QLatin1String(button)))
            found->setIcon(themedIcon(QString::fromLatin1(icon), ColourRole::PageText));
    }
    if (auto* const splitter = findChild<QSplitter*>())
        splitter->setSizes({placesWidth, firstSize.width() - placesWidth});
    if (auto* const files = findChild<QTreeView*>(QStringLiteral("treeView"))) {
        files->header()->setStretchLastSection(true);
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        files->header()->setSectionResizeMode(0, QHeaderView::Interactive);
        files->header()->resizeSection(0, nameColumnWidth);
    }
}

} // namespace lorvan
