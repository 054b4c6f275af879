#include "features/RichText.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextFormat>
#include <QUrl>
#include <QVector>

#include <algorithm>

namespace {

/// As much as Qt's parser reads quickly: its time grows with the square of the nesting.
constexpr int LongestParsed = 1 << 14;
constexpr int MostTagsParsed = 200;
constexpr int LongestTag = 1 << 10;
constexpr int LongestToolTip = 1 << 16;
constexpr QLatin1Char Bracket('<');

/// Tags and comments that cannot name a resource: no value holds an entity, and no style a
/// function, an escape or a rule.
const QString FormattingTag = QStringLiteral(
    "(?:</?(?:a|address|b|big|blockquote|br|caption|center|cite|code|dd|dfn|div|dl|dt|em|font|"
    "h[1-6]|hr|i|kbd|li|nobr|ol|p|pre|qt|s|samp|small|span|strong|sub|sup|table|tbody|td|tfoot|th|"
    "thead|tr|tt|u|ul|var)"
    "(?:\\s+(?:(?:align|bgcolor|border|cellpadding|cellspacing|color|colspan|dir|face|height|href|"
    "name|rowspan|size|start|title|type|valign|width)="
    "(?:\"[^\"<>&]*\"|'[^'<>&]*'|[\\w#%.-]+)|style=(?:\"[\\w #%:;,.-]*\"|'[\\w #%:;,.-]*')))*+"
    "\\s*/?>|<!--[^<>-]*-->)");

/// Lets Qt's own parser say what it asks for: no other could judge better. Nothing is laid out,
/// because the layout would open pictures without asking loadResource().
class WatchedDocument : public QTextDocument
{
public:
    bool namesResources(const QString& html)
    {
        setUndoRedoEnabled(false);
        setHtml(html);
        const QVector<QTextFormat> formats = allFormats();
        return m_asked ||
               std::any_of(formats.begin(), formats.end(),
                           [](const QTextFormat& format) { return format.isImageFormat(); });
    }

protected:
    QVariant loadResource(int, const QUrl&) override
    {
        m_asked = true;
        return QVariant();
    }

private:
    bool m_asked = false;
};

bool isFormattingTag(const QString& tag)
{
    static const QRegularExpression formatting(QStringLiteral("\\A%1\\z").arg(FormattingTag),
                                               QRegularExpression::CaseInsensitiveOption);
    return formatting.match(tag).hasMatch();
}

/// The text with every bracket escaped that does not open a tag of plain formatting.
QString formattingOnly(const QString& text)
{
    QString result;
    int done = 0;
    for (int open = text.indexOf(Bracket); open >= 0; open = text.indexOf(Bracket, open + 1)) {
        const int close = text.leftRef(open + LongestTag).indexOf(QLatin1Char('>'), open);
        if (close >= 0 && isFormattingTag(text.mid(open, close + 1 - open)))
            continue;
        result += text.midRef(done, open - done) + QLatin1String("&lt;");
        done = open + 1;
    }
    return result + text.midRef(done);
}

/// Qt's parser measures fonts, which programs without a display do not have.
bool canBeParsed(const QString& text)
{
    return text.size() <= LongestParsed && text.count(Bracket) <= MostTagsParsed &&
           qobject_cast<QGuiApplication*>(QCoreApplication::instance());
}

} // namespace

QString RichText::withoutResources(const QString& text)
{
    const QString safe = formattingOnly(text);
    const bool isOdd = safe != text;
    return isOdd && canBeParsed(text) && !WatchedDocument().namesResources(text) ? text : safe;
}

QString RichText::forToolTip(const QString& text)
{
    return withoutResources(text.left(LongestToolTip));
}
