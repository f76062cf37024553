// A drawing's file on a second thread, its display list in steps on this one.
#include "apps/desktop/Loading.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include "apps/desktop/BehindBar.h"
#include "apps/desktop/Texts.h"
#include "apps/painter/ListBuilder.h"

namespace desktop {

namespace {

using List = std::shared_ptr<const painter::DisplayList>;

QString NameOf(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).fileName();
}

List Shared(painter::DisplayList&& list) {
    return std::make_shared<const painter::DisplayList>(std::move(list));
}

List PrepareBehindBar(QProgressDialog& bar, OdDbDatabase& drawing, const QString& name) {
    constexpr int kSteps = 1000;
    constexpr qint64 kBetweenSteps = 50;  // milliseconds
    bar.setMaximum(kSteps);
    bar.setLabelText(Say("Preparing the view of %1…").arg(name));
    QElapsedTimer sinceStep;
    painter::BuildOptions options;
    options.progress = [&](double done) {
        if (sinceStep.isValid() && sinceStep.elapsed() < kBetweenSteps) return true;
        bar.setValue(static_cast<int>(done * kSteps));
        sinceStep.start();
        return !bar.wasCanceled();
    };
    auto list = painter::BuildDisplayList(drawing, options);
    return list ? Shared(std::move(*list)) : nullptr;
}

template <class Read>
std::optional<LoadedDrawing> LoadBehindBar(QWidget* window, const std::string& path,
                                           const Read& read) {
    const QString name = NameOf(path);
    WaitBar bar(window, Plain(Say("&Open…")), Say("Reading %1…").arg(name));
    LoadedDrawing loaded;
    const auto drawing = std::make_shared<OdDbDatabasePtr>();
    if (!RunBehindBar(bar, [drawing, read] { *drawing = read(); })) return std::nullopt;
    loaded.drawing = std::move(*drawing);
    loaded.list = PrepareBehindBar(bar, *loaded.drawing, name);
    if (!loaded.list) return std::nullopt;
    return loaded;
}

}  // namespace

std::optional<LoadedDrawing> LoadDrawing(QWidget* window, const std::string& nativePath,
                                         const host::DwgConverter& converter) {
    const bool convert = host::IsDwg(nativePath);
    const auto read = [=] {
        return convert ? host::ImportDwg(nativePath, converter)
                       : OdDbDatabase::readFile(nativePath);
    };
    std::optional<LoadedDrawing> loaded;
    if (convert || QFileInfo(QString::fromStdString(nativePath)).size() >= kLargeFile) {
        loaded = LoadBehindBar(window, nativePath, read);
    } else {
        loaded.emplace().drawing = read();
        loaded->list = Shared(std::move(*painter::BuildDisplayList(*loaded->drawing)));
    }
    if (loaded) loaded->converted = convert;
    return loaded;
}

List PrepareView(QWidget* window, OdDbDatabase& drawing, const std::string& nativePath) {
    if (static_cast<qint64>(drawing.store().Original().size()) < kLargeFile)
        return Shared(std::move(*painter::BuildDisplayList(drawing)));
    WaitBar bar(window, Plain(Say("&Open…")), {});
    return PrepareBehindBar(bar, drawing, NameOf(nativePath));
}

}  // namespace desktop
