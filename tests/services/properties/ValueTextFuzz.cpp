#include "services/math/Matrix.h"
#include "services/properties/PropertiesString.h"
#include "services/properties/ValueText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <random>

namespace {

std::mt19937_64 dice(3);

/// Any bit pattern: subnormal, infinite and undefined numbers too.
template <class T>
T anyNumber()
{
    T number{};
    quint64 const bits = dice() % 8 ? dice() : dice() >> (dice() % 64);
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

template <class T>
bool sameNumber(T a, T b)
{
    return (a != a && b != b) || std::memcmp(&a, &b, sizeof a) == 0;
}

template <class T>
void expectRoundTrip(T const& value, auto const& same)
{
    T read{};
    QString const text = fen::toText(value);
    ASSERT_TRUE(fen::fromText(text, read)) << text.toStdString();
    ASSERT_TRUE(same(value, read)) << text.toStdString();
    FenPropertiesString store;
    ASSERT_EQ(text, store.setValue("key", text));
    ASSERT_EQ(text, store.getValue("key", read, T()));
    ASSERT_TRUE(same(value, read)) << text.toStdString();
    ASSERT_EQ(text, store.setValue("key", value));
}

QString anyText()
{
    QString text;
    for (quint64 i = dice() % 8; i > 0; --i) text += QChar(ushort(dice() >> (dice() % 16 ? 48 : 57)));
    return text;
}

TEST(ValueText, EveryValueReadsBackExactly)
{
    auto const equal = [](auto const& a, auto const& b) { return a == b; };
    auto const floats = [](float const* a, float const* b, int count) {
        for (int i = 0; i < count; ++i)
            if (!sameNumber(a[i], b[i])) return false;
        return true;
    };
    for (int i = 0; i < 20000; ++i) {
        expectRoundTrip(anyNumber<double>(), sameNumber<double>);
        expectRoundTrip(anyNumber<float>(), sameNumber<float>);
        expectRoundTrip(double(qint64(dice() % 2000001) - 1000000) / 1000, sameNumber<double>);
        expectRoundTrip(anyNumber<int>(), equal);
        expectRoundTrip(anyNumber<unsigned>(), equal);
        expectRoundTrip(QColor::fromRgba(anyNumber<unsigned>()), equal);
        if (HasFatalFailure()) return;
        if (i % 20) continue;
        expectRoundTrip(Kes::Math::Vector3(anyNumber<float>(), anyNumber<float>(), 1),
                        [&](auto const& a, auto const& b) { return floats(a, b, 3); });
        Kes::Math::Matrix matrix;
        for (int k = 0; k < 16; ++k) static_cast<float*>(matrix)[k] = anyNumber<float>();
        expectRoundTrip(matrix, [&](auto const& a, auto const& b) { return floats(a, b, 16); });
        QStringList texts;
        QList<QColor> colors;
        std::vector<double> numbers;
        for (quint64 k = dice() % 5; k > 0; --k) {
            texts << anyText();
            colors << (dice() % 4 ? QColor::fromRgba(anyNumber<unsigned>()) : QColor());
            numbers.push_back(anyNumber<double>());
        }
        expectRoundTrip(texts, equal);
        expectRoundTrip(colors, equal);
        expectRoundTrip(numbers, [](auto const& a, auto const& b) {
            return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameNumber<double>);
        });
    }
}

/// Damaged list texts are read or refused, and refused ones leave the value alone.
TEST(ValueText, DamagedTextsDoNoHarm)
{
    std::string const pieces = "[]\",\\u0d8f {}truenal-1e+.#\n";
    for (int i = 0; i < 50000; ++i) {
        QString text = i % 2 ? QString("[") : fen::toText(QStringList{anyText(), anyText()});
        for (quint64 k = dice() % 12; k > 0; --k)
            text.insert(qsizetype(dice() % quint64(text.size() + 1)),
                        QLatin1Char(pieces[dice() % pieces.size()]));
        text.truncate(qsizetype(dice() % 24));
        QStringList texts{"kept"};
        ASSERT_TRUE(fen::fromText(text, texts) || texts == QStringList{"kept"}) << text.toStdString();
        std::vector<double> numbers{-7};
        ASSERT_TRUE(fen::fromText(text, numbers) || numbers == std::vector<double>{-7}) << text.toStdString();
        QColor color(Qt::red);
        ASSERT_TRUE(fen::fromText(text, color) || color == QColor(Qt::red)) << text.toStdString();
        double number = -7;
        ASSERT_TRUE(fen::fromText(text, number) || number == -7) << text.toStdString();
    }
}

} // namespace
