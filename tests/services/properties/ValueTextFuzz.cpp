#include "services/math/Matrix.h"
#include "services/properties/PropertiesString.h"
#include "services/properties/ValueText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <type_traits>

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
void expectRoundTrip(T const& value)
{
    T read{};
    QString const text = fen::toText(value);
    ASSERT_TRUE(fen::fromText(text, read)) << text.toStdString();
    FenPropertiesString store;
    ASSERT_EQ(text, store.setValue("key", value));
    ASSERT_EQ(text, store.getValue("key", read, T()));
    if constexpr (std::is_floating_point_v<T>)
        ASSERT_TRUE((value != value && read != read) || std::memcmp(&value, &read, sizeof read) == 0);
    else if constexpr (std::is_integral_v<T> || std::is_same_v<T, QStringList>)
        ASSERT_EQ(value, read);
    else // made of numbers, whose texts are exact
        ASSERT_EQ(text, fen::toText(read));
}

QString anyText()
{
    QString text;
    for (quint64 i = dice() % 8; i > 0; --i) text += QChar(ushort(dice() >> (dice() % 16 ? 48 : 57)));
    return text;
}

TEST(ValueText, EveryValueReadsBackExactly)
{
    for (int i = 0; i < 2000 && !testing::Test::HasFatalFailure(); ++i) {
        expectRoundTrip(anyNumber<double>());
        expectRoundTrip(anyNumber<float>());
        expectRoundTrip(double(qint64(dice() % 2000001) - 1000000) / 1000);
        expectRoundTrip(anyNumber<unsigned>());
        expectRoundTrip(QColor::fromRgba(anyNumber<unsigned>()));
        expectRoundTrip(Kes::Math::Vector3(anyNumber<float>(), anyNumber<float>(), 1));
        Kes::Math::Matrix matrix;
        for (int k = 0; k < 16; ++k) static_cast<float*>(matrix)[k] = anyNumber<float>();
        expectRoundTrip(matrix);
        QStringList texts;
        QList<QColor> colors;
        std::vector<double> numbers;
        for (quint64 k = dice() % 5; k > 0; --k) {
            texts << anyText();
            colors << (dice() % 4 ? QColor::fromRgba(anyNumber<unsigned>()) : QColor());
            numbers.push_back(anyNumber<double>());
        }
        expectRoundTrip(texts);
        expectRoundTrip(colors);
        expectRoundTrip(numbers);
    }
}

/// Damaged list texts are read or refused, and refused ones leave the value alone.
TEST(ValueText, DamagedTextsDoNoHarm)
{
    std::string const pieces = "[]\",\\u0d8f {}truenal-1e+.#\n";
    for (int i = 0; i < 8000; ++i) {
        QString text = i % 2 ? QString("[") : fen::toText(QStringList{anyText(), anyText()});
        for (quint64 k = dice() % 12; k > 0; --k)
            text.insert(qsizetype(dice() % quint64(text.size() + 1)),
                        QLatin1Char(pieces[dice() % pieces.size()]));
        text.truncate(qsizetype(dice() % 24));
        QStringList texts{"kept"};
        ASSERT_TRUE(fen::fromText(text, texts) || texts == QStringList{"kept"}) << text.toStdString();
        std::vector<double> numbers{-7};
        ASSERT_TRUE(fen::fromText(text, numbers) || numbers == std::vector<double>{-7}) << text.toStdString();
    }
}

} // namespace
