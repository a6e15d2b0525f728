#include "tools/source/Source_generator.h"

#include <QFileInfo>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <sstream>

#include "tools/pool/Labels.h"

namespace VT {

namespace {

const char* const cpp_keywords[] = {
    "alignas", "alignof", "and", "and_eq", "asm", "auto", "bitand", "bitor", "bool", "break", "case", "catch", "char",
    "char16_t", "char32_t", "class", "compl", "const", "constexpr", "const_cast", "continue", "decltype", "default",
    "delete", "do", "double", "dynamic_cast", "else", "enum", "explicit", "export", "extern", "false", "float", "for",
    "friend", "goto", "if", "inline", "int", "long", "mutable", "namespace", "new", "noexcept", "not", "not_eq",
    "nullptr", "operator", "or", "or_eq", "private", "protected", "public", "register", "reinterpret_cast", "return",
    "short", "signed", "sizeof", "static", "static_assert", "static_cast", "struct", "switch", "template", "this",
    "thread_local", "throw", "true", "try", "typedef", "typeid", "typename", "union", "unsigned", "using", "virtual",
    "void", "volatile", "wchar_t", "while", "xor", "xor_eq",
    // names the generated text itself uses
    "Pool", "Pool_data", "Oids", "objects", "VT", "Base", "NULL", "memcpy", "std"};

bool is_identifier(const QByteArray& n)
{
    if (n.isEmpty() || !(isalpha(uchar(n[0])) || n[0] == '_'))
        return false;
    for (char c : n)
        if (!(isalnum(uchar(c)) || c == '_'))
            return false;
    for (const char* k : cpp_keywords)
        if (n == k)
            return false;
    return true;
}

QStringList lines_of(const std::string& text)
{
    QStringList out;
    for (const QString& l : QString::fromStdString(text).split('\n'))
        if (!l.trimmed().isEmpty())
            out.append(l);
    return out;
}

}

bool Source_generator::generate(Object_pool& pool, const QString& origin, std::ostream& os, QString* error)
{
    // Every object name becomes a C++ identifier, and its arrays are members named
    // <object>_<attribute>: both must be usable and must not collide.
    QSet<QByteArray> names;
    for (VT_obj* obj : pool.objects())
        names.insert(QByteArray(obj->VT_obj_base::get_name()));
    QStringList bad;
    for (VT_obj* obj : pool.objects()) {
        QByteArray n(obj->VT_obj_base::get_name());
        if (!is_identifier(n))
            bad.append(QStringLiteral("'%1' is not usable as a C++ name").arg(QString::fromUtf8(n)));
        for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i)
            if (Attribute* a = obj->get_every_attribute(i))
                if (a->name && names.contains(n + "_" + a->name))
                    bad.append(QStringLiteral("object name '%1' collides with the array of '%2' attribute '%3'")
                                   .arg(QString::fromUtf8(n + "_" + a->name), QString::fromUtf8(n), a->name));
    }
    // Generated source refers to objects by name: references read from pool bytes have only ids.
    int unnamed = 0;
    QString first_unnamed;
    for (VT_obj* obj : pool.objects())
        for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i) {
            Attribute* a = obj->get_every_attribute(i);
            auto note = [&](uint16_t id, const QByteArray& name) {
                if (id != VT_obj::NULL_ID && name.isEmpty() && unnamed++ == 0)
                    first_unnamed =
                        QStringLiteral("%1: '%2' refers to object %3").arg(object_label(obj), a->name).arg(id);
            };
            if (auto* single = dynamic_cast<Attribute_object_id*>(a))
                note(single->get(), single->get_referenced_name());
            else if (auto* places = dynamic_cast<Attribute_list<Attribute_object_placement>*>(a))
                for (uint32_t k = 0; k < places->held(); ++k)
                    note((*places)[k].get_object_id(), (*places)[k].get_referenced_name());
            else if (auto* list = dynamic_cast<Attribute_list<Attribute_object_id>*>(a))
                for (uint32_t k = 0; k < list->held(); ++k)
                    note((*list)[k].get(), (*list)[k].get_referenced_name());
        }
    if (unnamed)
        bad.append(QStringLiteral("%1 references name no object (%2), as in pool bytes; generated source needs "
                                  "a pool description")
                       .arg(unnamed)
                       .arg(first_unnamed));
    if (!bad.isEmpty()) {
        if (error)
            *error = bad.join("; ");
        return false;
    }

    QStringList defs, bodies, decls, inits, refs;
    for (VT_obj* obj : pool.objects()) {
        std::ostringstream def, body, init;
        obj->get_code_def(def, 1);
        obj->get_code_body(body, 2);
        obj->get_code_init(init, 0);
        // Everything the object defines but its own declaration is an array: those live in the
        // base, so they are filled before the objects that copy them are built.
        QStringList d = lines_of(def.str());
        if (!d.isEmpty())
            decls.append(d.takeLast());
        defs += d;
        bodies += lines_of(body.str());
        QStringList i = lines_of(init.str());
        for (QString& l : i)
            l = l.trimmed();
        inits.append(i.join(' '));
        refs.append(QStringLiteral("&%1").arg(QString::fromUtf8(obj->VT_obj_base::get_name())));
    }

    os << "// Generated by vtpool from " << QFileInfo(origin).fileName().toStdString()
       << ": rebuild it rather than edit it.\n"
       << "#include \"vt_core.h\"\n\n#include <cstring>\n\n"
       << "using namespace VT;\nusing namespace VT::Base;\n\n"
       << "// Element types of the arrays below.\n"
       << "typedef char char_t;\ntypedef unsigned short object_id_t;\ntypedef unsigned int argb_t;\n\n"
       << "namespace Oids {\nenum : unsigned short {\n";
    for (VT_obj* obj : pool.objects())
        os << "    " << obj->VT_obj_base::get_name() << " = " << obj->get_id() << ",\n";
    os << "};\n}\n\n";
    os << "struct Pool_data\n{\n";
    for (const QString& l : defs)
        os << l.toStdString() << "\n";
    if (!defs.isEmpty())
        os << "\n";
    os << "    Pool_data()\n    {\n";
    for (const QString& l : bodies)
        os << l.toStdString() << "\n";
    os << "    }\n};\n\n";
    os << "struct Pool : Pool_data\n{\n";
    for (const QString& l : decls)
        os << l.toStdString() << "\n";
    os << "\n    Pool()\n";
    for (int i = 0; i < inits.size(); ++i)
        os << (i ? "        , " : "        : ") << inits[i].toStdString() << "\n";
    os << "    {\n    }\n\n";
    os << "    VT::VT_obj* objects[" << std::max(pool.size(), 1) << "] = {" << refs.join(", ").toStdString() << "};\n";
    os << "};\n";
    return true;
}

}
