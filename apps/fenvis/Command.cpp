#include "apps/fenvis/Command.h"

#include "host/output/MessageText.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>

namespace {

void write(std::FILE* stream, QString const& text)
{
    QByteArray const bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stream);
}

QString usageLine(command::Command const& self)
{
    return QStringLiteral("usage: fenvis %1 %2\n")
        .arg(QString::fromLatin1(self.name), QString::fromLatin1(self.operands));
}

QString optionText(QCommandLineOption const& option)
{
    QStringList names;
    bool const several = option.names().size() > 1;
    for (QString const& name : option.names())
        names.append((several && name.size() == 1 ? "-" : "--") + name);
    QString const value = option.valueName();
    return names.join(QStringLiteral(", ")) + (value.isEmpty() ? QString() : QLatin1Char(' ') + value);
}

/// A description below its option, broken between words.
QString wrapped(QString const& text, int indent)
{
    constexpr qsizetype width = 72;
    QString lines;
    qsizetype length = 0;
    for (QString const& word : text.split(QLatin1Char(' '))) {
        if (length > 0 && length + word.size() + 1 > width) {
            lines += QLatin1Char('\n') + QString(indent, QLatin1Char(' '));
            length = 0;
        } else if (length > 0) {
            lines += QLatin1Char(' ');
            ++length;
        }
        lines += word;
        length += word.size();
    }
    return lines;
}

} // namespace

QList<QCommandLineOption> command::noOptions() { return {}; }

QString command::helpText(Command const& self)
{
    constexpr int column = 22; // where the descriptions begin
    QString text = usageLine(self) + QString::fromLatin1(self.summary) + QStringLiteral("\n\n");
    QList<QCommandLineOption> options = self.options();
    options.append(QCommandLineOption(QStringLiteral("help"), QStringLiteral("this text")));
    for (QCommandLineOption const& option : options)
        text += QStringLiteral("  %1 %2\n")
                    .arg(optionText(option), -column)
                    .arg(wrapped(option.description(), column + 3));
    return text;
}

bool command::parse(Call const& call, Command const& self, int least, int most, QCommandLineParser& parser,
                    int& status)
{
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
    parser.addOptions(self.options());
    bool const parsed = parser.parse(QStringList(QStringLiteral("fenvis")) + call.arguments);
    if (parser.isSet(QStringLiteral("help"))) {
        print(helpText(self));
        status = Success;
        return false;
    }
    auto const operands = parser.positionalArguments().size();
    QString error;
    if (!parsed)
        error = parser.errorText();
    else if (operands < least)
        error = QStringLiteral("too few arguments");
    else if (operands > most)
        error = QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().at(most));
    if (error.isEmpty()) return true;
    status = wrongUsage(self, error);
    return false;
}

int command::badInput(QString const& message)
{
    write(stderr, message + QLatin1Char('\n'));
    return BadInput;
}

void command::remark(QStringList const& lines)
{
    constexpr qsizetype most = 10;
    for (QString const& line : lines.mid(0, most)) write(stderr, line + QLatin1Char('\n'));
    if (lines.size() > most) write(stderr, QStringLiteral("and %1 more of such\n").arg(lines.size() - most));
}

int command::wrongUsage(Command const& self, QString const& message)
{
    write(stderr,
          QStringLiteral("fenvis %1: %2\n").arg(QString::fromLatin1(self.name), fen::messageText(message))
              + usageLine(self)
              + QStringLiteral("fenvis %1 --help lists the options\n").arg(QString::fromLatin1(self.name)));
    return WrongUsage;
}

void command::print(QString const& text) { write(stdout, text); }
