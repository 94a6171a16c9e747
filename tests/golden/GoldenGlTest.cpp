#include "examples/gallery/Gallery.h"
#include "host/headless/OffscreenContext.h"
#include "host/scene/Scene.h"
#include "host/table/DataTable.h"
#include "services/math/BoundingBox.h"
#include "services/properties/ColorSchemes.h"
#include "tests/support/OffscreenGlTest.h"

#include "charts/correlation/VisChartCorrelation.h"
#include "charts/pie/VisChartPie.h"
#include "scene/VisImage.h"
#include "services/chartdata/ChartMultiAxis.h"
#include "services/chartdata/ChartVariable.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

namespace {

constexpr QSize size(640, 400); // [px] of the reference pictures

QString golden(QString const& name) { return QStringLiteral(FENVIS_GOLDEN) + name; }

/// What a picture depends on besides our code.
QByteArray surroundings()
{
    auto const text = [](GLenum name) {
        return QByteArray(reinterpret_cast<char const*>(glGetString(name)));
    };
    return text(GL_RENDERER) + '\n' + text(GL_VERSION) + "\nQt " + qVersion() + '\n';
}

struct Threshold {
    double max; ///< largest difference of a channel, 0..255
    double mean; ///< over all channels
};

/// The row of a scene, else that of "*".
Threshold thresholdOf(QString const& scene)
{
    FenDataTable table;
    QString error;
    EXPECT_TRUE(FenDataTable::read(golden(QStringLiteral("thresholds.csv")), table, error))
        << error.toStdString();
    FenDataTable::Column const& names = table.column(0);
    Threshold found{0, 0};
    for (QString const& wanted : {QStringLiteral("*"), scene}) {
        auto const category = double(names.categories.indexOf(wanted));
        for (std::size_t i = 0; i < table.rows(); ++i)
            if ((*names.values)[i] == category)
                found = {(*table.column(1).values)[i], (*table.column(2).values)[i]};
    }
    return found;
}

struct Difference {
    int max = 0;
    double mean = 0;
    QImage picture; ///< 16 times as strong
};

Difference difference(QImage const& left, QImage const& right)
{
    constexpr int strength = 16;
    Difference result;
    result.picture = QImage(left.size(), QImage::Format_RGB32);
    qint64 sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            QRgb const a = left.pixel(x, y);
            QRgb const b = right.pixel(x, y);
            int const by[] = {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                              std::abs(qBlue(a) - qBlue(b))};
            for (int const channel : by) {
                result.max = std::max(result.max, channel);
                sum += channel;
            }
            auto const shown = [&](int channel) { return std::min(255, by[channel] * strength); };
            result.picture.setPixel(x, y, qRgb(shown(0), shown(1), shown(2)));
        }
    }
    result.mean = double(sum) / (3.0 * left.width() * left.height());
    return result;
}

class GoldenGlTest : public OffscreenGlTest, public testing::WithParamInterface<gallery::Scene> {
protected:
    Picture drawn(FenVisScene& scene)
    {
        resizePicture(size.width(), size.height());
        GetParam().build(scene);
        scene.resize(size);
        scene.update();
        scene.draw();
        return picture();
    }
};

/// The colour that a chart shows a variable in.
QColor colorOf(FenVisChart const& node, FenChartVariable const& variable)
{
    // Each variable goes along with itself.
    if (auto const* const matrix = dynamic_cast<FenVisChartCorrelation const*>(&node))
        return matrix->binColors().back();
    bool const areas =
        variable.style.get() == FenChart::styleBar || dynamic_cast<FenVisChartPie const*>(&node);
    if (areas) return variable.fillColor.get();
    bool const points = variable.lineMode.get() == FenChart::lineNone;
    return points ? variable.symbolColor.get() : variable.lineColor.get();
}

std::string sceneName(testing::TestParamInfo<gallery::Scene> const& info)
{
    std::string name = info.param.name.toStdString();
    std::erase(name, '-'); // test names have letters and digits only
    return name;
}

/// Pixels in the hues of a ramp, whatever the light makes of them. Axes, grid and ground have no hue.
int countHues(Picture const& picture, QList<QColor> const& ramp)
{
    constexpr int samples = 32, near = 8, colorful = 60; // hues in degrees, saturation of 255
    std::array<bool, 360> wanted{};
    for (int i = 0; i <= samples; ++i) {
        int const hue = fen::rampColor(ramp, double(i) / samples).hsvHue();
        for (int k = -near; hue >= 0 && k <= near; ++k) wanted[std::size_t((hue + k + 360) % 360)] = true;
    }
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            QColor const pixel = picture.pixel(x, y);
            count += pixel.hsvSaturation() >= colorful && wanted[std::size_t(std::max(0, pixel.hsvHue()))];
        }
    return count;
}

} // namespace

TEST_P(GoldenGlTest, LooksAsItDid)
{
    FenVisScene scene;
    Picture const actual = drawn(scene);
    QString const file = golden(QStringLiteral("pictures/%1.png").arg(GetParam().name));
    QImage const expected(file);
    Difference const found =
        expected.size() == size ? difference(actual.image(), expected) : Difference{255, 255, {}};
    if (qEnvironmentVariableIsSet("FENVIS_UPDATE_GOLDEN")) {
        if (found.max == 0) return;
        std::printf("%s: differs by %d at most, %.3f in the mean\n", qPrintable(GetParam().name), found.max,
                    found.mean);
        if (qgetenv("FENVIS_UPDATE_GOLDEN") != "write") return;
        ASSERT_TRUE(actual.image().convertToFormat(QImage::Format_RGB32).save(file));
        QFile made(golden(QStringLiteral("pictures/made-with.txt")));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(surroundings());
        return;
    }
    QFile made(golden(QStringLiteral("pictures/made-with.txt")));
    ASSERT_TRUE(made.open(QIODevice::ReadOnly));
    QByteArray const with = made.readAll();
    if (with != surroundings())
        GTEST_SKIP() << "the pictures were made with\n"
                     << with.toStdString() << "this is\n"
                     << surroundings().toStdString();
    ASSERT_EQ(size, expected.size()) << "no picture " << file.toStdString()
                                     << ": tools/update-golden makes it";
    Threshold const allowed = thresholdOf(GetParam().name);
    if (found.max <= allowed.max && found.mean <= allowed.mean) return;
    QString const saved = actual.save(GetParam().name + QStringLiteral("-actual"));
    Picture(expected).save(GetParam().name + QStringLiteral("-expected"));
    Picture(found.picture).save(GetParam().name + QStringLiteral("-difference"));
    ADD_FAILURE() << "differs by " << found.max << " at most, " << found.mean << " in the mean; see "
                  << saved.toStdString();
}

/// A reference picture protects what it shows: each variable must be seen in it.
TEST_P(GoldenGlTest, ShowsEachOfItsVariables)
{
    constexpr int least = 40; // [px]
    constexpr int leastLit = 2000; // [px] of a ramp in light; its sample in a legend has fewer
    FenVisScene scene;
    Picture const actual = drawn(scene);
    auto* const node = dynamic_cast<FenVisChart*>(scene.root().at(0U));
    bool const ofItems = node && dynamic_cast<FenChartMultiAxis const*>(node->FenProperties::at("chart"));
    if (!node || ofItems) { // a scene of other nodes, or items whose lines mix their colours
        EXPECT_GT(actual.colors(), 2);
        return;
    }
    ASSERT_TRUE(node->variables());
    FenChartVariableList const& variables = *node->variables();
    ASSERT_GT(variables.size(), 0U);
    for (unsigned i = 0; i < variables.size(); ++i) {
        bool const lit =
            node->boundingBox().defined() && variables[i].fillMode.get() == FenChart::fillGradient;
        if (lit)
            EXPECT_GE(countHues(actual, variables[i].colors.get()), leastLit);
        else
            EXPECT_GE(actual.count(colorOf(*node, variables[i]), 8), least)
                << variables[i].name().toStdString();
    }
    QColor const corner = actual.pixel(0, 0);
    bool const pictured = dynamic_cast<FenVisImage const*>(scene.root().at("sky"));
    if (!pictured) {
        EXPECT_EQ(scene.background.get().rgb(), corner.rgb());
    }
}

TEST_P(GoldenGlTest, IsTheSameWhenItIsDrawnAgain)
{
    FenVisScene scene;
    Picture const first = drawn(scene);
    scene.update();
    scene.draw();
    EXPECT_EQ(0, first.differingPixels(picture()));
    expectPassKeepsState([&] { scene.draw(); });
}

INSTANTIATE_TEST_SUITE_P(Gallery, GoldenGlTest, testing::ValuesIn(gallery::scenes()), sceneName);
