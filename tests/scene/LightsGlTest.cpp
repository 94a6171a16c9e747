#include "scene/VisLight.h"
#include "scene/VisLightList.h"
#include "scene/VisViewpoint.h"
#include "services/math/Matrix.h"
#include "services/opengl/GlWrappers.h"
#include "tests/support/OffscreenGlTest.h"

#include <array>
#include <cmath>

using Kes::Math::Matrix, Kes::Math::Vector3;

namespace {

class Lights : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        glGetIntegerv(GL_MAX_LIGHTS, &units);
        ASSERT_GE(units, 8);
    }

    FenVisLight& light(QString const& name) { return list.child(name, FenVisLight::typeString); }
    /// Parameter of unit 0: up to four numbers.
    static std::array<GLfloat, 4> parameter(GLenum key)
    {
        std::array<GLfloat, 4> values{};
        glGetLightfv(GL_LIGHT0, key, values.data());
        return values;
    }
    unsigned unitsOn() const
    {
        unsigned on = 0;
        for (int i = 0; i < units; ++i) on += glIsEnabled(GLenum(GL_LIGHT0 + i)) ? 1 : 0;
        return on;
    }

    GLint units = 0;
    FenModifiedGroup group;
    FenVisLightList list{group};
};

} // namespace

TEST_F(Lights, EachEnabledChildDrivesTheUnitOfItsPlaceAndEveryOtherUnitIsOff)
{
    for (int i = 0; i < units; ++i) glEnable(GLenum(GL_LIGHT0 + i));
    list.setLighting();
    EXPECT_EQ(0u, unitsOn());
    for (int i = 0; i <= units; ++i) light(QString::number(i)); // one more than there are units
    list.setLighting();
    EXPECT_EQ(0u, unitsOn()) << "a fresh light is off";
    list.at(2u)->enabled.set(true);
    list.at(unsigned(units))->enabled.set(true);
    list.setLighting();
    EXPECT_EQ(1u, unitsOn());
    EXPECT_TRUE(glIsEnabled(GL_LIGHT2));
    list.erase(list.at(0u)); // the next one moves up
    list.setLighting();
    EXPECT_TRUE(glIsEnabled(GL_LIGHT1));
    auto* const other = new FenVisViewpoint(group);
    other->enabled.set(true);
    while (list.size() > 0) list.erase(list.at(0u));
    list.insert(other, false);
    list.setLighting();
    EXPECT_EQ(0u, unitsOn()) << "what is no light leaves its unit off";
}

TEST_F(Lights, PlacesLightsInEyeCoordinatesAndLeavesTheMatricesAlone)
{
    FenVisLight& one = light("one");
    one.enabled.set(true);
    one.position.set(Vector3(1, 2, 3));
    one.spotDirection.set(Vector3(0, 1, 0));
    one.diffuse.set(QColor(255, 0, 51));
    for (GLenum const mode : {GL_PROJECTION, GL_MODELVIEW}) {
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrix(Matrix::rotate(Vector3(1, 1, 1), 40));
        glMatrixMode(mode);
        Matrix const before = glGetModelViewMatrix();
        list.setLighting();
        GLint after = 0;
        glGetIntegerv(GL_MATRIX_MODE, &after);
        EXPECT_EQ(mode, GLenum(after));
        EXPECT_EQ(before, glGetModelViewMatrix());
        EXPECT_EQ((std::array<GLfloat, 4>{1, 2, 3, 1}), parameter(GL_POSITION));
        EXPECT_EQ((std::array<GLfloat, 4>{0, 1, 0, 0}), parameter(GL_SPOT_DIRECTION));
        EXPECT_EQ((std::array<GLfloat, 4>{1, 0, 0.2f, 1}), parameter(GL_DIFFUSE));
    }
}

TEST_F(Lights, NumbersThatOpenGLRefusesBecomeTheNearestThatItTakes)
{
    FenVisLight& one = light("one");
    one.enabled.set(true);
    struct Row {
        FenPropertyAdaptor<float>& setting;
        GLenum key;
        float given, expected;
    };
    Row const rows[] = {{one.spotCutoff, GL_SPOT_CUTOFF, 45, 45},
                        {one.spotCutoff, GL_SPOT_CUTOFF, 120, 180},
                        {one.spotCutoff, GL_SPOT_CUTOFF, -3, 0},
                        {one.spotCutoff, GL_SPOT_CUTOFF, NAN, 180},
                        {one.spotExponent, GL_SPOT_EXPONENT, 200, 128},
                        {one.attenuationConstant, GL_CONSTANT_ATTENUATION, -1, 0},
                        {one.attenuationConstant, GL_CONSTANT_ATTENUATION, NAN, 1},
                        {one.attenuationLinear, GL_LINEAR_ATTENUATION, INFINITY, 1e30f}};
    log.expect("A number of a light");
    for (Row const& row : rows) {
        row.setting.set(row.given);
        list.setLighting();
        EXPECT_EQ(row.expected, parameter(row.key)[0]) << row.given;
    }
}

TEST_F(Lights, TheListMakesAndNamesLightsAndReportsWhatIsNone)
{
    FenVisLight& made = list.child("a", ""); // a light all the same
    EXPECT_EQ(&made, list["a"]);
    auto* const unnamed = new FenVisLight(group);
    unnamed->rename("");
    EXPECT_TRUE(list.insert(unnamed, false));
    EXPECT_EQ("light", unnamed->name());
    auto* const node = new FenVisLight(group);
    node->rename("");
    EXPECT_TRUE(list.insert(static_cast<FenVisualization*>(node), false));
    EXPECT_EQ("light.0", node->name());
    EXPECT_FALSE(list.insert(static_cast<FenVisLight*>(nullptr), false));
    auto* const other = new FenVisViewpoint(group);
    list.insert(other, false);
    FenVisLight& failed = list.child(other->name(), FenVisLight::typeString);
    EXPECT_FALSE(list.insert(&failed, false));
    unnamed->setType("x");
    list.remove(unnamed);
    EXPECT_TRUE(list.insert(unnamed, false));
    QStringList const errors = log.take();
    ASSERT_EQ(3, errors.size());
    EXPECT_EQ("\"type == FenVisLight::typeString\" - "
              "FenVisLight& FenVisLightList::child(const QString&, const QString&)",
              errors[0]);
    EXPECT_TRUE(
        errors[1].startsWith("\"c && \"Type is incorrect\"\" - FenVisLight& FenVisLightList::child("));
    EXPECT_TRUE(errors[2].startsWith("\"item->type() == FenVisLight::typeString\" - "));
}
