#include "tools/description/Description.h"

#include <QFile>
#include <QFileInfo>

#include "tools/description/Attribute_names.h"
#include "tools/description/Values.h"
#include "tools/description/Xml_reader.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Object_factory.h"
#include "tools/terminal/Scaling.h"

namespace VT {

namespace {

Description* current_description = nullptr;

}

Description::Description() = default;
Description::~Description() = default;

QString Description::where(const Xml_element* e) const
{
    return e ? QStringLiteral("%1:%2").arg(file).arg(e->line) : file;
}

void Description::problem(const Xml_element* e, const QString& text)
{
    QString line = where(e) + ": " + text;
    if (!problem_list.contains(line))
        problem_list.append(line);
}

void Description::warning(const Xml_element* e, const QString& text)
{
    QString line = where(e) + ": " + text;
    if (!warning_list.contains(line))
        warning_list.append(line);
}

bool Description::load_file(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        file = path;
        problem_list.append(QStringLiteral("%1: cannot open: %2").arg(path, f.errorString()));
        return false;
    }
    return parse(f.readAll(), path);
}

bool Description::parse(const QByteArray& xml, const QString& file_name)
{
    file = file_name;
    base_dir = QFileInfo(file_name).absolutePath();
    root.reset();
    root = Xml_reader::read(xml, file, problem_list);
    return root && problem_list.isEmpty();
}


const Xml_element* Description::element_of(Spec_node* node) const
{
    if (!node)
        return nullptr;
    for (Xml_element* e : object_elements)
        if (e->object && e->object->get_spec_node() == node)
            return e;
    return nullptr;
}

uint16_t Description::lookup_id(const QByteArray& name) const
{
    Xml_element* e = by_name.value(name, nullptr);
    return e && e->id >= 0 ? uint16_t(e->id) : VT_obj::NULL_ID;
}

VT_obj* Description::find_object(const QByteArray& name) const
{
    Xml_element* e = by_name.value(name, nullptr);
    return e ? e->object : nullptr;
}

void Description::note_unknown_reference(const Xml_element* e, const QByteArray& name)
{
    QPair<const Xml_element*, QByteArray> key(e, name);
    if (unknown_seen.contains(key))
        return;
    unknown_seen.insert(key);
    // Items of lists are reported at the element that holds them, with the item's own line.
    const Xml_element* owner = e;
    while (owner && !owner->is_object())
        owner = owner->parent;
    QString whose;
    if (owner) {
        const QByteArray* owner_name = owner->attribute("name");
        whose = QStringLiteral(" (in %1 '%2')")
                    .arg(QString::fromUtf8(owner->name), owner_name ? QString::fromUtf8(*owner_name) : QString());
    }
    problem(e, QStringLiteral("unknown object '%1'%2").arg(QString::fromUtf8(name), whose));
}

bool Description::declared_colour(const QByteArray& name, unsigned char& out) const
{
    QByteArray text = name;
    // Declarations may name other declarations; a short chain only, so loops end.
    for (int depth = 0; depth < 8; ++depth) {
        auto it = colours.constFind(text);
        if (it == colours.constEnd())
            return false;
        unsigned char c = 0;
        if (Attribute_colour::get_colour_val(it->value.constData(), c)) {
            out = c;
            return true;
        }
        text = it->value;
    }
    return false;
}

void Description::collect(Xml_element* e, int depth)
{
    if (e->name == "colour") {
        const QByteArray* name = e->attribute("name");
        const QByteArray* value = e->attribute("value");
        if (!name || name->isEmpty() || !value) {
            problem(e, QStringLiteral("<colour> needs a name and a value"));
            return;
        }
        e->mark_used("name");
        e->mark_used("value");
        if (colours.contains(*name)) {
            problem(e, QStringLiteral("colour '%1' is already declared at line %2")
                           .arg(QString::fromUtf8(*name))
                           .arg(colours.value(*name).element->line));
            return;
        }
        unsigned char c = 0;
        if (Attribute_colour::get_colour_val(name->constData(), c))
            warning(e, QStringLiteral("colour '%1' reads as a standard colour or number; the declaration is never used")
                           .arg(QString::fromUtf8(*name)));
        colours.insert(*name, {*value, e});
        return;
    }
    if (!e->is_object()) {
        problem(e, QStringLiteral("<%1> is not allowed here").arg(QString::fromUtf8(e->name)));
        return;
    }
    const Object_factory::Entry* entry = Object_factory::find(e->name);
    if (!entry) {
        if (Object_factory::catalogue_knows(e->name))
            problem(e, QStringLiteral("object type '%1' is not available in this build").arg(QString::fromUtf8(e->name)));
        else
            problem(e, QStringLiteral("unknown object type '%1'").arg(QString::fromUtf8(e->name)));
    }
    for (const QString& p : Attribute_names::resolve(*e))
        problem(e, p);
    e->mark_used("name");
    e->mark_used("id");
    const QByteArray* name = e->attribute("name");
    if (!name || name->isEmpty()) {
        problem(e, QStringLiteral("<%1> has no name").arg(QString::fromUtf8(e->name)));
    } else if (name->size() > VT_obj::NAME_LEN) {
        problem(e, QStringLiteral("name '%1' is longer than %2 characters")
                       .arg(QString::fromUtf8(*name))
                       .arg(VT_obj::NAME_LEN));
    } else if (*name == "65535" || *name == VT_obj::NO_NAME) {
        problem(e, QStringLiteral("'%1' cannot be used as a name").arg(QString::fromUtf8(*name)));
    } else if (by_name.contains(*name)) {
        problem(e, QStringLiteral("name '%1' is already used at line %2")
                       .arg(QString::fromUtf8(*name))
                       .arg(by_name.value(*name)->line));
    } else {
        by_name.insert(*name, e);
    }
    if (const QByteArray* id_text = e->attribute("id")) {
        bool negative = false;
        quint64 id = 0;
        if (!Values::parse_integer(*id_text, negative, id) || negative || id >= VT_obj::NULL_ID) {
            problem(e, QStringLiteral("id '%1' is not an object id (0 to 65534)").arg(QString::fromUtf8(*id_text)));
        } else if (by_id.contains(uint16_t(id))) {
            problem(e, QStringLiteral("id %1 is already used at line %2").arg(id).arg(by_id.value(uint16_t(id))->line));
        } else {
            by_id.insert(uint16_t(id), e);
            e->id = int(id);
        }
    }
    object_elements.append(e);
    check_children(e, depth + 1);
}

void Description::check_children(Xml_element* e, int depth)
{
    for (const auto& child : e->children) {
        Xml_element* c = child.get();
        if (depth > Xml_element::MAX_DEPTH) {
            problem(c, QStringLiteral("objects nested too deeply"));
            return;
        }
        if (!c->is_object())
            for (const QString& p : Attribute_names::resolve(*c))
                problem(c, p);
        if (c->is_object()) {
            collect(c, depth); // an inline object of a plain reference list
        } else if (c->is_list_item() || c->kind == Xml_element::ATTR_WRAPPER) {
            int objects = 0;
            for (const auto& inner : c->children) {
                if (inner->is_object() && objects++ == 0)
                    collect(inner.get(), depth + 1);
                else
                    problem(inner.get(), QStringLiteral("<%1> holds one object definition only")
                                             .arg(QString::fromUtf8(c->name)));
            }
            if (c->kind == Xml_element::ATTR_WRAPPER && objects == 0)
                problem(c, QStringLiteral("<%1> holds no object definition").arg(QString::fromUtf8(c->name)));
        } else if (c->name == "colour") {
            problem(c, QStringLiteral("<colour> declarations belong directly under <object_pool>"));
        } else {
            // A code plane's ranges are the only items that hold items.
            for (const auto& inner : c->children)
                if (c->name != "Code_plane_rangeset" || inner->name != "Code_plane_range" || !inner->children.empty())
                    problem(inner.get(), QStringLiteral("<%1> has no child elements").arg(QString::fromUtf8(c->name)));
        }
    }
}

void Description::assign_ids()
{
    uint32_t next = 0;
    auto take_lowest = [&](Xml_element* e) {
        while (next < VT_obj::NULL_ID && by_id.contains(uint16_t(next)))
            ++next;
        if (next >= VT_obj::NULL_ID) {
            problem(e, QStringLiteral("no object id left"));
            return;
        }
        by_id.insert(uint16_t(next), e);
        e->id = int(next);
    };
    // A working set prefers id 0.
    for (Xml_element* e : object_elements)
        if (e->id < 0 && !e->attribute("id") && e->name == "Working_set") {
            if (!by_id.contains(0)) {
                by_id.insert(0, e);
                e->id = 0;
            } else {
                take_lowest(e);
            }
        }
    for (Xml_element* e : object_elements)
        if (e->id < 0 && !e->attribute("id"))
            take_lowest(e);
}

namespace {
unsigned char resolve_declared_colour(Resolve_colour::Attribute_node& node)
{
    Description* d = current_description;
    const char* text = node.get_name() ? node.get_name() : "";
    unsigned char colour = 0;
    if (d && d->declared_colour(QByteArray(text), colour))
        return colour;
    // Only nodes of this description are looked into; others may belong to anyone.
    const Xml_element* e = d ? d->element_of(node.get_spec_node()) : nullptr;
    if (d && e)
        d->problem(e, QStringLiteral("unknown colour '%1'").arg(QString::fromUtf8(text)));
    return 0;
}
}

void Description::resolve_colours()
{
    current_description = this;
    Resolve_colour::List<Resolve_colour::Attribute_node>::unresolved.resolve_colours(&resolve_declared_colour);
    current_description = nullptr;
}

bool Description::build(Object_pool& target)
{
    pool = &target;
    if (!root) {
        if (problem_list.isEmpty())
            problem_list.append(QStringLiteral("%1: nothing to build").arg(file));
        return false;
    }
    if (root->name != "object_pool") {
        problem(root.get(), QStringLiteral("the root element must be <object_pool>, not <%1>").arg(QString::fromUtf8(root->name)));
        return false;
    }
    for (const auto& c : root->children)
        collect(c.get(), 1);
    assign_ids();
    read_vt6_objects();
    read_translations();
    if (!problem_list.isEmpty())
        return false;

    for (Xml_element* e : object_elements)
        prepare_values(e);
    apply_language();
    for (Xml_element* e : object_elements) {
        const Object_factory::Entry* entry = Object_factory::find(e->name);
        VT_obj* obj = pool->create(*entry, make_node(e));
        obj->set_id(uint16_t(e->id));
        obj->set_name(e->attribute("name")->constData());
        QString why;
        if (pool->add(obj, &why))
            e->object = obj;
        else
            problem(e, why);
    }
    // What the library says while the objects take their values is filed under their elements.
    Library_output said(verbose);
    read_values(said);
    // Children placed by name learn their area from the masks only through their references.
    said.set_context(nullptr);
    for (const Scaling::Area_note& note : Scaling::propagate_areas(*pool))
        warning(element_of(note.object->get_spec_node()), object_label(note.object) + ": " + note.text);
    resolve_colours();
    hear(said, nullptr, QString());
    read_host_lists();
    justify();
    hear(said, nullptr, QString());
    report_unused(root.get());
    return problem_list.isEmpty();
}

}
