#include "host/Console.h"

#include <QString>

#include <cstdio>

namespace {

void writeLine(FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", qPrintable(text));
}

} // namespace

void Console::print(const QString& text)
{
    writeLine(stdout, text);
}

void Console::complain(const QString& sentence)
{
    writeLine(stderr, "ZalViewer: " + sentence);
}
