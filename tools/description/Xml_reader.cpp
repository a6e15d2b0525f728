#include "tools/description/Xml_reader.h"

#include <QHash>
#include <QStringView>
#include <QXmlStreamReader>
#include <algorithm>
#include <vector>

namespace VT {

namespace {

// Element names and attribute keys repeat: each distinct one is converted and classified once.
class Names
{
public:
    struct Name
    {
        QString text;
        QByteArray utf8;
        Xml_element::Kind kind;
    };

    const Name& of(const QStringRef& ref)
    {
        auto it = names.constFind(QStringView(ref));
        if (it != names.constEnd())
            return *it;
        const QString text = ref.toString();
        const QByteArray utf8 = text.toUtf8();
        // The key views the text its own entry holds (shared, so it never moves).
        return *names.insert(QStringView(text), Name{text, utf8, Xml_element::kind_of(utf8)});
    }

private:
    QHash<QStringView, Name> names;
};

void add_problem(QStringList& problems, const QString& line)
{
    if (!problems.contains(line))
        problems.append(line);
}

}

std::unique_ptr<Xml_element> Xml_reader::read(const QByteArray& xml, const QString& file, QStringList& problems)
{
    std::unique_ptr<Xml_element> root;
    QXmlStreamReader reader(xml);
    Names names;
    std::vector<Xml_element*> stack;
    while (!reader.atEnd()) {
        // Text between tokens is a token of its own, so this is the line a start tag begins on
        // (the reader reports where it ends).
        qint64 start_line = reader.lineNumber();
        QXmlStreamReader::TokenType t = reader.readNext();
        if (t == QXmlStreamReader::StartElement) {
            if (stack.size() >= size_t(Xml_element::MAX_DEPTH)) {
                problems.append(QStringLiteral("%1:%2: elements nested more than %3 deep")
                                    .arg(file)
                                    .arg(reader.lineNumber())
                                    .arg(Xml_element::MAX_DEPTH));
                return nullptr;
            }
            auto element = std::make_unique<Xml_element>();
            const Names::Name& name = names.of(reader.name());
            element->name = name.utf8;
            element->kind = name.kind;
            element->line = int(std::max<qint64>(start_line, 1));
            const QXmlStreamAttributes attributes = reader.attributes();
            element->attributes.reserve(size_t(attributes.size()));
            for (const QXmlStreamAttribute& a : attributes)
                element->attributes.push_back({names.of(a.qualifiedName()).utf8, a.value().toUtf8()});
            stack.push_back(Xml_element::adopt(std::move(element), root, stack));
        } else if (t == QXmlStreamReader::EndElement) {
            if (!stack.empty())
                stack.pop_back();
        } else if (t == QXmlStreamReader::Characters && !reader.isWhitespace() && !stack.empty()) {
            const Xml_element* e = stack.back();
            add_problem(problems,
                        QStringLiteral("%1:%2").arg(file).arg(e->line) + ": " +
                            QStringLiteral("unexpected text '%1' in <%2>")
                                .arg(reader.text().toString().trimmed().left(40), QString::fromUtf8(e->name)));
        }
    }
    if (reader.hasError()) {
        problems.append(
            QStringLiteral("%1:%2: XML error: %3").arg(file).arg(reader.lineNumber()).arg(reader.errorString()));
        return nullptr;
    }
    if (!root)
        problems.append(QStringLiteral("%1: no root element").arg(file));
    return root;
}

}
