#include "record/info/XmlTree.h"

#include <QIODevice>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <algorithm>

// The reader is deprecated, but QDomDocument itself uses it.
QT_WARNING_DISABLE_DEPRECATED

namespace {

// Gives the reader one character after the other, and knows whether it stands in a tag.
class Source : public QXmlInputSource
{
public:
    explicit Source(const QByteArray &bytes)
        : m_text(fromRawData(bytes, true)), m_next(m_text.constData()),
          m_end(m_next + m_text.size()), m_lookedAt(m_next)
    {
    }

    QChar next() override
    {
        if (m_next == m_end)
            return QChar(EndOfDocument);
        const QChar letter = *m_next++;
        // What cannot be decoded ends the document, too.
        return letter.unicode() == EndOfData ? QChar(EndOfDocument) : letter;
    }

    // The last character that was read; null before the first.
    QChar last() const { return m_next == m_text.constData() ? QChar() : m_next[-1]; }

    // Something was told about what has been read, but for a character that the reader looked
    // ahead.
    void wasTold()
    {
        m_isInTag = false;
        m_lookedAt = last() == QLatin1Char('<') ? m_next - 1 : m_next;
    }

    // Whether a tag has begun that nothing was told about. Looks at each character once.
    bool isInTag()
    {
        m_isInTag = m_isInTag || std::find(m_lookedAt, m_next, QLatin1Char('<')) != m_next;
        m_lookedAt = m_next;
        return m_isInTag;
    }

private:
    const QString m_text;
    const QChar *m_next;
    const QChar *const m_end;
    const QChar *m_lookedAt;
    bool m_isInTag = false;
};

// Stands between the reader and the builder of the tree.
class Limits : public QXmlDefaultHandler
{
public:
    explicit Limits(Source *source) : m_source(source) {}

    QXmlContentHandler *content = nullptr;
    QXmlLexicalHandler *lexical = nullptr;

    // Whether the file goes beyond them.
    bool areBroken() const { return m_areBroken; }

    void setDocumentLocator(QXmlLocator *locator) override { content->setDocumentLocator(locator); }
    bool startElement(const QString &uri, const QString &localName, const QString &name,
                      const QXmlAttributes &attributes) override
    {
        m_source->wasTold();
        return isAllowed(++m_depth <= XmlTree::MaxDepth) &&
               content->startElement(uri, localName, name, attributes);
    }
    bool endElement(const QString &uri, const QString &localName, const QString &name) override
    {
        m_source->wasTold();
        --m_depth;
        return content->endElement(uri, localName, name);
    }
    bool characters(const QString &text) override { return content->characters(text); }
    bool processingInstruction(const QString &target, const QString &data) override
    {
        m_source->wasTold();
        return content->processingInstruction(target, data);
    }
    // The builder would take one in an attribute for one before its element.
    bool skippedEntity(const QString &name) override
    {
        return m_source->isInTag() || content->skippedEntity(name);
    }
    QString errorString() const override { return content->errorString(); }

    // The reader has seen the end of a document type without definitions by now.
    bool startDTD(const QString &name, const QString &publicId, const QString &systemId) override
    {
        return isAllowed(m_source->last() == QLatin1Char('>')) &&
               lexical->startDTD(name, publicId, systemId);
    }
    bool startCDATA() override { return lexical->startCDATA(); }
    bool endCDATA() override
    {
        m_source->wasTold();
        return lexical->endCDATA();
    }
    bool comment(const QString &text) override
    {
        m_source->wasTold();
        return lexical->comment(text);
    }

private:
    bool isAllowed(bool isWithin)
    {
        m_areBroken = m_areBroken || !isWithin;
        return isWithin;
    }

    Source *m_source;
    int m_depth = 0;
    bool m_areBroken = false;
};

// A tree is built by handlers that QDomDocument gives the reader.
class LimitedReader : public QXmlSimpleReader
{
public:
    explicit LimitedReader(Limits *limits) : m_limits(limits) {}

    void setContentHandler(QXmlContentHandler *handler) override
    {
        m_limits->content = handler;
        QXmlSimpleReader::setContentHandler(m_limits);
    }
    void setLexicalHandler(QXmlLexicalHandler *handler) override
    {
        m_limits->lexical = handler;
        QXmlSimpleReader::setLexicalHandler(m_limits);
    }

private:
    Limits *m_limits;
};

}

QDomDocument XmlTree::read(QIODevice &device)
{
    const QByteArray bytes = device.read(MaxSize + 1);
    if (bytes.size() > MaxSize)
        return QDomDocument();

    Source source(bytes);
    Limits limits(&source);
    LimitedReader reader(&limits);
    // As QDomDocument does with its own.
    reader.setFeature(QLatin1String("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(
        QLatin1String("http://trolltech.com/xml/features/report-whitespace-only-CharData"), false);
    QDomDocument tree;
    tree.setContent(&source, &reader);
    return limits.areBroken() ? QDomDocument() : tree;
}
