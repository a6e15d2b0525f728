#include "tools/source/Language_tables.h"

#include <QHash>
#include <QSet>
#include <cstdio>

#include "tools/pool/Partial_pool.h"

namespace VT {

namespace {

using Object_bytes = Partial_pool::Object_bytes;

// Bytes this many to a line of generated source.
const int BYTES_PER_LINE = 16;

QByteArray joined(const QVector<Object_bytes>& objects)
{
    QByteArray out;
    for (const Object_bytes& o : objects)
        out += o.bytes;
    return out;
}

}

bool Language_tables::make(const QVector<Language>& languages, QVector<Table>& out, QString* error)
{
    out.clear();
    QVector<QVector<Object_bytes>> pools(languages.size());
    for (int i = 0; i < languages.size(); ++i) {
        const QByteArray which = "'" + languages[i].code + "'";
        if (!Partial_pool::split(languages[i].pool, which.constData(), pools[i], error))
            return false;
    }
    if (pools.isEmpty())
        return true;
    // The ids whose bytes differ from the default language's in any language: between any two
    // languages only these differ.
    QSet<uint16_t> changing;
    QHash<uint16_t, QByteArray> first;
    for (const Object_bytes& o : pools[0])
        first.insert(o.id, o.bytes);
    for (int i = 1; i < pools.size(); ++i)
        for (const Object_bytes& o : pools[i])
            if (!first.contains(o.id) || first.value(o.id) != o.bytes)
                changing.insert(o.id);
    for (int i = 0; i < languages.size(); ++i) {
        Table t;
        t.code = languages[i].code;
        for (const Object_bytes& o : pools[i])
            if (changing.contains(o.id)) {
                t.objects.append({o.id, int(t.bytes.size()), int(o.bytes.size())});
                t.bytes += o.bytes;
            }
        out.append(t);
    }
    // Whatever language the terminal holds, each table must give the pool in its own.
    for (int from = 0; from < languages.size(); ++from)
        for (int to = 0; to < languages.size(); ++to) {
            QByteArray applied;
            if (!Partial_pool::apply(joined(pools[from]), out[to].bytes, applied, error))
                return false;
            if (applied != joined(pools[to])) {
                if (error)
                    *error = QStringLiteral("the '%1' objects put over the pool in '%2' do not give the pool in "
                                            "'%1': the languages' pools differ in more than their objects' bytes")
                                 .arg(QString::fromUtf8(languages[to].code), QString::fromUtf8(languages[from].code));
                return false;
            }
        }
    return true;
}

const char* Language_tables::types()
{
    return "// The pool in each of its languages (vtpool source): the objects that differ between the\n"
           "// languages, as one language has them. Sent to the terminal in an object pool transfer, they\n"
           "// replace the objects of their ids, and the terminal then holds the pool in that language,\n"
           "// whichever it held before.\n"
           "struct Language_object\n{\n"
           "    unsigned short id;   // the object it replaces\n"
           "    unsigned int offset; // where its bytes start in the table's bytes\n"
           "    unsigned int size;\n"
           "};\n\n"
           "struct Language_table\n{\n"
           "    const char* code;           // two lower-case letters: \"de\"\n"
           "    const unsigned char* bytes; // the objects, one after the other\n"
           "    unsigned int size;\n"
           "    const Language_object* objects;\n"
           "    unsigned int count;\n"
           "};\n\n";
}

const char* Language_tables::lookup_declaration()
{
    return "// The table of a language by its code (\"de\"); null for a language the pool is not in.\n"
           "const Language_table* language_table(const char* code);\n";
}

void Language_tables::write(const QVector<Table>& tables, bool with_types, std::ostream& os)
{
    os << "\n";
    if (with_types)
        os << types();
    os << "namespace Language_data {\n\n";
    for (const Table& t : tables) {
        if (t.objects.isEmpty())
            continue;
        const std::string code = t.code.toStdString();
        os << "const unsigned char " << code << "_bytes[" << t.bytes.size() << "] = {";
        for (int i = 0; i < t.bytes.size(); ++i) {
            char hex[8];
            snprintf(hex, sizeof hex, "0x%02X", unsigned(uchar(t.bytes[i])));
            os << (i % BYTES_PER_LINE ? " " : "\n    ") << hex << (i + 1 < t.bytes.size() ? "," : "");
        }
        os << "\n};\n\nconst Language_object " << code << "_objects[" << t.objects.size() << "] = {\n";
        for (const Table::Object& o : t.objects)
            os << "    {" << o.id << ", " << o.offset << ", " << o.size << "},\n";
        os << "};\n\n";
    }
    os << "// The default language first.\nconst Language_table tables[" << tables.size() << "] = {\n";
    for (const Table& t : tables) {
        const std::string code = t.code.toStdString();
        if (t.objects.isEmpty())
            os << "    {\"" << code << "\", nullptr, 0, nullptr, 0},\n";
        else
            os << "    {\"" << code << "\", " << code << "_bytes, " << t.bytes.size() << ", " << code << "_objects, "
               << t.objects.size() << "},\n";
    }
    os << "};\n\n}\n\n"
       << "const Language_table* language_table(const char* code)\n{\n"
       << "    for (const Language_table& t : Language_data::tables)\n"
       << "        if (code && std::strcmp(t.code, code) == 0)\n"
       << "            return &t;\n"
       << "    return nullptr;\n}\n";
}

}
