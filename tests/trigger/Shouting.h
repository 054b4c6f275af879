#pragma once

#include <QTranslator>

/// Translates the engine's texts into capitals.
class Shouting : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        const bool isOurs = qstrcmp(context, "AdvTriggerBase") == 0;
        return isOurs ? QString::fromLatin1(source).toUpper() : QString();
    }
};
