#include "tools/Pool_tools.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QSet>
#include <algorithm>
#include <iomanip>
#include <sstream>

#include "tools/Description.h"
#include "tools/Pool_file.h"
#include "tools/check/Read_diagnosis.h"

namespace VT {

namespace {

bool looks_like_xml(const QByteArray& head)
{
    for (char c : head) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            continue;
        return c == '<';
    }
    return false;
}

QString type_name(unsigned type)
{
    return QString::fromLatin1(VT_obj_type::get_type_string(VT_obj_type::type_t(type)));
}

// Whether any child is allowed under a parent type: parents without rules are not checked.
bool has_rules(unsigned parent)
{
    static QHash<unsigned, bool> cache;
    auto it = cache.constFind(parent);
    if (it != cache.constEnd())
        return *it;
    bool any = false;
    for (unsigned child = 0; child < 256 && !any; ++child)
        for (unsigned context = 0; context < 16 && !any; ++context)
            any = Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent), VT_obj_type::type_t(child),
                                                                context) != 0;
    for (unsigned ext = 1; ext <= 5 && !any; ++ext)
        any = Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent),
                                                            VT_obj_type::type_t(246 + 256 * ext), 0) != 0;
    cache.insert(parent, any);
    return any;
}

const char* const cpp_keywords[] = {
    "alignas", "alignof", "and", "and_eq", "asm", "auto", "bitand", "bitor", "bool", "break", "case", "catch",
    "char", "char16_t", "char32_t", "class", "compl", "const", "constexpr", "const_cast", "continue", "decltype",
    "default", "delete", "do", "double", "dynamic_cast", "else", "enum", "explicit", "export", "extern", "false",
    "float", "for", "friend", "goto", "if", "inline", "int", "long", "mutable", "namespace", "new", "noexcept",
    "not", "not_eq", "nullptr", "operator", "or", "or_eq", "private", "protected", "public", "register",
    "reinterpret_cast", "return", "short", "signed", "sizeof", "static", "static_assert", "static_cast", "struct",
    "switch", "template", "this", "thread_local", "throw", "true", "try", "typedef", "typeid", "typename", "union",
    "unsigned", "using", "virtual", "void", "volatile", "wchar_t", "while", "xor", "xor_eq",
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

bool Pool_tools::load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings, bool verbose,
                      bool* is_description, Pool_file::Read_report* report)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problems.append(QStringLiteral("%1: cannot open: %2").arg(path, f.errorString()));
        return false;
    }
    QByteArray content = f.readAll();
    bool xml = path.endsWith(".xml", Qt::CaseInsensitive) || looks_like_xml(content.left(64));
    if (is_description)
        *is_description = xml;
    if (xml) {
        // The objects keep the description's nodes: the description lives as long as the pool.
        auto d = std::make_shared<Description>();
        pool.keep_alive(d);
        bool ok = d->parse(content, path) && d->build(pool);
        problems += d->problems();
        warnings += d->warnings();
        if (verbose)
            warnings += d->library_notes();
        return ok && problems.isEmpty();
    }
    QString error;
    Pool_file::Read_report own;
    Pool_file::Read_report& r = report ? *report : own;
    const bool read = Pool_file::read(content, pool, &error, &r);
    // Objects after one whose length is wrong are read from the wrong bytes: what was clamped
    // in them says nothing.
    Check::Suspect suspect;
    const bool suspected = !read && Check::Read_diagnosis::diagnose(content, r, &suspect);
    for (int i = 0; i < r.clamped.size(); ++i)
        if (!suspected || r.clamped_objects.value(i) <= suspect.index)
            warnings.append(path + ": " + r.clamped[i]);
    if (verbose)
        for (const QString& note : r.library_notes)
            warnings.append(path + ": " + note);
    if (!read) {
        problems.append(path + ": " + error);
        if (suspected)
            problems.append(path + ": " + suspect.text());
        return false;
    }
    return true;
}

QString Pool_tools::label(VT_obj* obj)
{
    if (!obj)
        return QStringLiteral("(none)");
    return QStringLiteral("'%1' (%2 %3)")
        .arg(QString::fromUtf8(obj->VT_obj_base::get_name()), QString::fromLatin1(obj->get_type_string()))
        .arg(obj->get_id());
}

QVector<Object_reference> Pool_tools::references(VT_obj& obj)
{
    QVector<Object_reference> out;
    obj.lock();
    for (uint16_t i = 0; i < obj.get_num_every_attribute(); ++i) {
        Attribute* a = obj.get_every_attribute(i);
        if (!a)
            continue;
        // Only these kinds of attribute hold references: the others skip the casts below.
        const Attribute::atype kind = a->get_type();
        if (kind != Attribute::ATTR_OBJECT_ID && kind != Attribute::ATTR_LIST && kind != Attribute::ATTR_ARRAY_OBJECT_ID)
            continue;
        // The attribute's name, made once it is needed (most attributes refer to nothing).
        QByteArray name;
        auto add = [&](Object_reference::Kind kind, uint16_t id) {
            if (name.isNull())
                name = QByteArray(a->name ? a->name : "");
            out.append({kind, name, int(i), id});
        };
        if (auto* single = dynamic_cast<Attribute_object_id*>(a)) {
            add(Object_reference::REFERENCE, single->get());
        } else if (auto* places = dynamic_cast<Attribute_list<Attribute_object_placement>*>(a)) {
            for (uint32_t k = 0; k < places->held(); ++k)
                add(Object_reference::CHILD, (*places)[k].get_object_id());
        } else if (auto* list = dynamic_cast<Attribute_list<Attribute_object_id>*>(a)) {
            for (uint32_t k = 0; k < list->held(); ++k)
                add(Object_reference::CHILD, (*list)[k].get());
        } else if (auto* array = dynamic_cast<Attribute_array_object_id*>(a)) {
            for (uint32_t k = 0; k < array->get_length(); ++k)
                add(Object_reference::CHILD, (*array)[k]);
        } else if (auto* labels = dynamic_cast<Attribute_list<Attribute_labelref>*>(a)) {
            for (uint32_t k = 0; k < labels->held(); ++k) {
                const Attribute_labelref& l = (*labels)[k];
                add(Object_reference::CHILD, l.get_labelled_object());
                add(Object_reference::REFERENCE, l.get_string_variable());
                add(Object_reference::REFERENCE, l.get_graphic_representation());
            }
        } else if (auto* macros = dynamic_cast<Attribute_list<Attribute_event_macro>*>(a)) {
            for (uint32_t k = 0; k < macros->held(); ++k)
                add(Object_reference::MACRO, (*macros)[k].get_macro_id());
        }
    }
    obj.unlock();
    return out;
}

int Pool_tools::type_version(unsigned type)
{
    if (type <= 30)
        return 2;
    if (type <= 33)
        return 3;
    if (type <= 40)
        return 4;
    if (type <= 45)
        return 5;
    if (type <= 47)
        return 6;
    return 0;
}

Pool_tools::Check_result Pool_tools::check(Object_pool& pool, int vt_version)
{
    Check_result r;
    QHash<uint16_t, VT_obj*> seen;
    QMap<int, QStringList> needs; // version -> reasons
    for (VT_obj* obj : pool.objects()) {
        uint16_t id = obj->get_id();
        if (seen.contains(id))
            r.problems.append(QStringLiteral("%1 and %2 share id %3").arg(label(seen.value(id)), label(obj)).arg(id));
        seen.insert(id, obj);

        unsigned parent_type = obj->get_type();
        if (int v = type_version(parent_type & 0xFF))
            needs[v].append(QStringLiteral("%1: object type %2").arg(label(obj), type_name(parent_type)));
        bool rules = has_rules(parent_type);
        for (const Object_reference& ref : references(*obj)) {
            VT_obj* target = ref.id == VT_obj::NULL_ID ? nullptr : pool.find(ref.id);
            if (ref.kind == Object_reference::MACRO) {
                if (!target)
                    r.problems.append(QStringLiteral("%1: event macro refers to missing macro %2").arg(label(obj)).arg(ref.id));
                else if (target->get_type() != VT_obj_type::TYPE_MACRO)
                    r.problems.append(QStringLiteral("%1: event macro refers to %2, which is not a macro")
                                          .arg(label(obj), label(target)));
                continue;
            }
            if (ref.id != VT_obj::NULL_ID && !target) {
                r.problems.append(QStringLiteral("%1: '%2' refers to missing object %3")
                                      .arg(label(obj), QString::fromUtf8(ref.attribute))
                                      .arg(ref.id));
                continue;
            }
            if (ref.kind != Object_reference::CHILD || !rules)
                continue;
            unsigned child_type = target ? unsigned(target->get_type()) : 255u;
            int allowed = Base::VT_obj_relationships::get_child_allowed(
                VT_obj_type::type_t(parent_type), VT_obj_type::type_t(child_type), unsigned(ref.attribute_index));
            if (allowed == 0) {
                r.problems.append(QStringLiteral("%1: %2 may not be a child of %3 (in '%4')")
                                      .arg(label(obj), target ? label(target) : QStringLiteral("the NULL object"),
                                           type_name(parent_type), QString::fromUtf8(ref.attribute)));
                continue;
            }
            needs[allowed].append(QStringLiteral("%1: child %2").arg(label(obj), target ? label(target) : "NULL"));
        }
    }
    if (!needs.isEmpty()) {
        r.needed_version = needs.lastKey();
        // One line per object, with everything that makes it need that version.
        QMap<QString, QStringList> per_object;
        QStringList order;
        for (const QString& reason : needs.last()) {
            int colon = reason.indexOf(QStringLiteral("): "));
            QString who = reason.left(colon + 1);
            if (!per_object.contains(who))
                order.append(who);
            per_object[who].append(reason.mid(colon + 3));
        }
        for (const QString& who : order)
            r.needing.append(who + ": " + per_object[who].join(", "));
    }
    if (vt_version > 0)
        for (auto it = needs.constBegin(); it != needs.constEnd(); ++it)
            if (it.key() > vt_version)
                for (const QString& reason : it.value())
                    r.problems.append(
                        QStringLiteral("%1 needs VT version %2 (checking for %3)").arg(reason).arg(it.key()).arg(vt_version));
    return r;
}

void Pool_tools::propagate_areas(Object_pool& pool)
{
    auto walk = [&](VT_obj* root, scale_area_t area) {
        QSet<VT_obj*> visited;
        QVector<VT_obj*> todo{root};
        visited.insert(root);
        while (!todo.isEmpty()) {
            VT_obj* obj = todo.takeLast();
            for (const Object_reference& ref : references(*obj)) {
                if (ref.kind == Object_reference::MACRO || ref.id == VT_obj::NULL_ID)
                    continue;
                VT_obj* target = pool.find(ref.id);
                if (!target || visited.contains(target))
                    continue;
                visited.insert(target);
                // Masks and keys set their own area: a data mask's soft-key mask is not in it.
                scale_area_t own = target->__get_scale_area_type();
                if (own != SCALE_AREA_NONE && own != area)
                    continue;
                target->check_scale_area(area);
                todo.append(target);
            }
        }
    };
    for (VT_obj* obj : pool.objects())
        if (obj->get_type() == VT_obj_type::TYPE_DATA_MASK)
            walk(obj, SCALE_AREA_ACTIVE);
    for (VT_obj* obj : pool.objects()) {
        unsigned t = obj->get_type();
        if (t == VT_obj_type::TYPE_SOFT_KEY_MASK || t == VT_obj_type::TYPE_KEY)
            walk(obj, SCALE_AREA_SOFT_KEY);
    }
}

void Pool_tools::scale(Object_pool& pool, const Ratio& mask, const Ratio& key)
{
    for (VT_obj* obj : pool.objects()) {
        scale_area_t area = obj->__get_scale_area_type();
        if (area == SCALE_AREA_NONE)
            area = obj->get_scale_area();
        const Ratio& r = area == SCALE_AREA_SOFT_KEY ? key : mask;
        if (r.active)
            obj->set_scale(r.num_x, r.num_y, r.den_x, r.den_y);
    }
}

bool Pool_tools::generate_source(Object_pool& pool, const QString& origin, std::ostream& os, QString* error)
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
                    first_unnamed = QStringLiteral("%1: '%2' refers to object %3").arg(label(obj), a->name).arg(id);
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

void Pool_tools::info(Object_pool& pool, std::ostream& os, int largest)
{
    struct Per_type
    {
        int count = 0;
        qint64 bytes = 0;
    };
    QMap<unsigned, Per_type> types;
    QVector<QPair<int, VT_obj*>> sizes;
    qint64 total = 0;
    for (VT_obj* obj : pool.objects()) {
        int n = Pool_file::object_bytes(*obj).size();
        Per_type& t = types[obj->get_type()];
        ++t.count;
        t.bytes += n;
        total += n;
        sizes.append({n, obj});
    }
    os << pool.size() << " objects, " << total << " bytes\n\n";
    os << std::left << std::setw(36) << "type" << std::right << std::setw(8) << "objects" << std::setw(10) << "bytes"
       << "\n";
    for (auto it = types.constBegin(); it != types.constEnd(); ++it)
        os << std::left << std::setw(36) << QStringLiteral("%1 (%2)").arg(type_name(it.key())).arg(it.key() & 0xFF).toStdString()
           << std::right << std::setw(8) << it->count << std::setw(10) << it->bytes << "\n";
    std::stable_sort(sizes.begin(), sizes.end(), [](const QPair<int, VT_obj*>& a, const QPair<int, VT_obj*>& b) {
        return a.first > b.first;
    });
    os << "\nlargest objects:\n";
    for (int i = 0; i < sizes.size() && i < largest; ++i)
        os << std::setw(10) << sizes[i].first << "  " << label(sizes[i].second).toStdString() << "\n";
}

}
