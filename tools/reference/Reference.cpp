#include "tools/reference/Reference.h"

#include <QStringList>
#include <QVector>
#include <algorithm>
#include <cstring>

#include "tools/check/Object_facts.h"
#include "tools/description/Attribute_names.h"
#include "tools/reference/Attribute_meanings.h"

namespace VT {

namespace {

typedef QVector<QStringList> Table;

QString type_text(const Class_facts& c)
{
    if (c.type < 256)
        return QString::number(c.type) + (c.entry->pool_forms == 2 ? QStringLiteral(" (iso)") : QString());
    if (c.entry->pool_forms == 2) // the ISO form of type 46 or 47
        return QStringLiteral("%1 (iso)").arg(c.type & 0xFF);
    return QStringLiteral("%1/%2").arg(c.type & 0xFF).arg(c.type >> 8);
}

QString version_text(int version)
{
    return version ? QString::number(version) : QStringLiteral("-");
}

QString default_text(const Attribute_facts& f)
{
    switch (f.shape) {
    case Attribute_facts::COUNT: return QStringLiteral("(counted)");
    case Attribute_facts::LIST:
    case Attribute_facts::ARRAY:
    case Attribute_facts::TEXT: return QStringLiteral("empty");
    case Attribute_facts::SCALAR: break;
    }
    const qint64 v = f.value_of(f.default_bytes);
    switch (f.atype) {
    case Attribute::ATTR_COLOUR:
        return v < Attribute_colour::num_named_colours ? QString::fromLatin1(Attribute_colour::list_named_colours[v])
                                                       : QString::number(v);
    case Attribute::ATTR_OBJECT_ID: return v == VT_obj::NULL_ID ? QStringLiteral("65535 (none)") : QString::number(v);
    case Attribute::ATTR_FLOAT: {
        float x = 0;
        const uint32_t bits = uint32_t(v);
        memcpy(&x, &bits, sizeof x);
        return QString::number(double(x));
    }
    default: return QString::number(v);
    }
}

QString range_text(const Attribute_facts& f)
{
    if (f.shape != Attribute_facts::SCALAR || !f.has_range || f.atype == Attribute::ATTR_OBJECT_ID)
        return QString();
    return QStringLiteral("%1..%2").arg(f.min).arg(f.max);
}

QString size_text(const Attribute_facts& f)
{
    if (!f.travels)
        return QStringLiteral("not sent");
    if (f.shape == Attribute_facts::SCALAR || f.shape == Attribute_facts::COUNT)
        return QString::number(f.size);
    if (f.item_element == "Code_plane_rangeset")
        return QStringLiteral("2+4n each");
    return QStringLiteral("%1 each").arg(f.size);
}

QString name_text(const Class_facts& facts, const Attribute_facts& f)
{
    QString name = QString::fromLatin1(f.name);
    const QList<QByteArray> aliases = Attribute_names::aliases_of(facts.name, f.name);
    if (!aliases.isEmpty()) {
        QStringList also;
        for (const QByteArray& a : aliases)
            also.append(QString::fromLatin1(a));
        name += QStringLiteral(" (also %1)").arg(also.join(", "));
    }
    return name;
}

Table attribute_rows(const Class_facts& facts)
{
    Table rows;
    rows.append(QStringList{"byte", "attribute", "size", "kind", "range", "default", "AID"});
    for (const Attribute_facts& f : facts.attributes)
        rows.append({f.offset >= 0 ? QString::number(f.offset) : f.travels ? QStringLiteral("then") : QString(),
                     name_text(facts, f), size_text(f), f.kind(), range_text(f), default_text(f),
                     f.aid >= 0 ? QString::number(f.aid) : QString()});
    return rows;
}

// The events event macros name, by id: "On Key Press (24)".
QStringList event_names()
{
    QStringList names;
    for (unsigned e = 0; e < 256; ++e)
        if (Check::event_kind(e) == Check::Event_kind::defined)
            names.append(QString::fromLatin1(Check::event_name(e)));
    return names;
}

// The VT version that bits of a value of an attribute need, where some do.
int bits_version(unsigned type, const QByteArray& attribute, uint32_t bits)
{
    int version = 0;
    for (int i = 0; i < Check::value_version_count; ++i) {
        const Check::Value_version& v = Check::value_versions[i];
        if (v.type == type && attribute == v.attribute && (v.bits & bits))
            version = std::max(version, v.version);
    }
    return version;
}

// How each list is written in a description: "child_location: <place object x_location ...>".
QStringList list_syntax(const Class_facts& facts)
{
    QStringList out;
    for (const Attribute_facts& f : facts.attributes) {
        if (f.shape != Attribute_facts::LIST || !f.travels)
            continue;
        QStringList keys;
        for (const QByteArray& k : Attribute_names::known(f.item_element, false))
            keys.append(QString::fromLatin1(k));
        if (f.item_element == "Code_plane_rangeset") {
            out.append(QStringLiteral("%1: <Code_plane_rangeset code_plane=\"\"><Code_plane_range first_char=\"\" "
                                      "last_char=\"\"/>...</Code_plane_rangeset>")
                           .arg(QString::fromLatin1(f.name)));
            continue;
        }
        out.append(QStringLiteral("%1: <%2 %3/>").arg(QString::fromLatin1(f.name), QString::fromLatin1(f.item_element),
                                                      keys.join("=\"\" ") + "=\"\""));
    }
    return out;
}

// What the bits or values of each attribute mean, as (condition, text) lines under a heading.
struct Meaning_block
{
    QString heading;
    QVector<QPair<QString, QString>> lines;
};

QVector<Meaning_block> meaning_blocks(const Class_facts& facts)
{
    QVector<Meaning_block> blocks;
    auto add = [&](const QByteArray& name) {
        const Attribute_meanings* m = attribute_meanings(facts.type, name.constData());
        if (!m)
            return;
        Meaning_block b;
        b.heading = QStringLiteral("%1 (%2)").arg(QString::fromLatin1(name),
                                                  m->kind == Attribute_meanings::BITS ? "bits" : "values");
        if (m->note)
            b.heading += QStringLiteral(": %1").arg(QString::fromLatin1(m->note));
        for (int i = 0; i < m->count; ++i) {
            QString text = QString::fromLatin1(m->entries[i].text);
            if (m->kind == Attribute_meanings::BITS && m->entries[i].match)
                if (int v = bits_version(facts.type, name, m->entries[i].match))
                    text += QStringLiteral(" (VT version %1)").arg(v);
            b.lines.append({m->condition(m->entries[i]), text});
        }
        blocks.append(b);
    };
    for (const Attribute_facts& f : facts.attributes)
        add(f.name);
    // Members of list items (a label reference's font type); event ids are listed apart.
    for (const Attribute_facts& f : facts.attributes)
        if (f.shape == Attribute_facts::LIST && f.name != "event_macro")
            for (const QByteArray& member : Attribute_names::known(f.item_element, false))
                add(f.name + "." + member);
    return blocks;
}

QString plain_table(const Table& rows)
{
    QVector<int> width(rows.first().size(), 0);
    for (const QStringList& r : rows)
        for (int i = 0; i < r.size(); ++i)
            width[i] = std::max(width[i], int(r[i].size()));
    QString out;
    for (const QStringList& r : rows) {
        QString line;
        for (int i = 0; i < r.size(); ++i)
            line += r[i].leftJustified(width[i] + 2);
        while (line.endsWith(' '))
            line.chop(1);
        out += line + "\n";
    }
    return out;
}

QString markdown_table(const Table& rows)
{
    QString out;
    for (int i = 0; i < rows.size(); ++i) {
        QStringList cells = rows[i];
        for (QString& c : cells)
            c.replace('|', "\\|");
        out += "| " + cells.join(" | ") + " |\n";
        if (i == 0)
            out += "|" + QString("---|").repeated(cells.size()) + "\n";
    }
    return out;
}

Table type_rows()
{
    Table rows;
    rows.append(QStringList{"type", "name", "VT version", "bytes without lists"});
    for (const Class_facts* c : all_class_facts())
        rows.append({type_text(*c), QString::fromLatin1(c->name), version_text(c->vt_version),
                     c->entry->in_pool_files() ? QString::number(c->fixed_bytes) : QStringLiteral("descriptions only")});
    return rows;
}

bool has_macros(const Class_facts& facts)
{
    const Attribute_facts* f = facts.find("event_macro");
    return f && f->travels;
}

}

QString Reference::types_text()
{
    return plain_table(type_rows()) + "\nvtpool attributes TYPE lists the attributes of a type.\n";
}

QString Reference::attributes_text(const Class_facts& facts)
{
    QString out = QStringLiteral("%1: type %2, VT version %3, %4 bytes without its lists\n\n")
                      .arg(QString::fromLatin1(facts.name), type_text(facts))
                      .arg(version_text(facts.vt_version))
                      .arg(facts.fixed_bytes);
    out += plain_table(attribute_rows(facts));
    const QStringList lists = list_syntax(facts);
    if (!lists.isEmpty())
        out += "\nLists, as a description gives them:\n  " + lists.join("\n  ") + "\n";
    for (const Meaning_block& b : meaning_blocks(facts)) {
        out += "\n" + b.heading + "\n";
        Table rows;
        for (const auto& l : b.lines)
            rows.append({"  " + l.first, l.second});
        if (!rows.isEmpty())
            out += plain_table(rows);
    }
    if (has_macros(facts))
        out += "\nEvents it raises (event_id of <Event_macro>): " + Check::events_of(facts.type) + "\n";
    return out;
}

QString Reference::markdown()
{
    QString out = QStringLiteral(
        "# Object reference\n\n"
        "Written by `vtpool types --markdown` from the object classes themselves (`scripts/update-docs.sh`);\n"
        "a test fails when this file and the classes part. `vtpool attributes TYPE` shows the same for one\n"
        "type.\n\n"
        "Each object is an element of a pool description (see [description-format.md](description-format.md))\n"
        "named after its type, its attributes XML attributes under the names below. *byte* is where an\n"
        "attribute starts in the object's bytes (the id takes bytes 0-1, the type byte 2; *then*: after a\n"
        "list, where it depends on the list); *default* is the value an object gets when its description\n"
        "leaves the attribute out; *AID* is the attribute id a terminal changes it by; counts follow from\n"
        "their lists and need not be given. Names in parentheses are other names a description may use.\n"
        "Types without a VT version (-) are this system's own.\n\n"
        "## Types\n\n");
    out += markdown_table(type_rows());
    out += "\n## Events\n\nThe `event_id` of `<Event_macro>` items: " + event_names().join(", ") +
           "; 240 to 254 are proprietary.\n";
    for (const Class_facts* c : all_class_facts()) {
        out += QStringLiteral("\n## %1\n\nType %2, %3.\n\n")
                   .arg(QString::fromLatin1(c->name), type_text(*c),
                        c->vt_version ? QStringLiteral("VT version %1").arg(c->vt_version)
                                      : QStringLiteral("a type of this system's own"));
        out += markdown_table(attribute_rows(*c));
        const QStringList lists = list_syntax(*c);
        if (!lists.isEmpty()) {
            out += "\nLists:\n\n";
            for (const QString& l : lists)
                out += "- `" + l + "`\n";
        }
        for (const Meaning_block& b : meaning_blocks(*c)) {
            out += "\n" + b.heading + ":\n\n";
            for (const auto& l : b.lines)
                out += "- " + l.first + ": " + l.second + "\n";
        }
        if (has_macros(*c))
            out += "\nEvents it raises: " + Check::events_of(c->type) + ".\n";
    }
    return out;
}

}
