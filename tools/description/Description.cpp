#include "tools/description/Description.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <cstring>
#include <memory>
#include <limits>
#include <type_traits>

#include "tools/description/Attribute_names.h"
#include "tools/description/Values.h"
#include "tools/description/Xml_reader.h"
#include "tools/pictures/Picture_encoder.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Object_factory.h"
#include "tools/terminal/Scaling.h"

namespace VT {

namespace {

// Attributes given as hexadecimal byte strings.
bool is_byte_string(const QByteArray& key)
{
    return key == "bytes" || key == "colours" || key == "data";
}

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

void Description::prepare_values(Xml_element* e)
{
    bool picture = e->name == "Picture_graphic" || e->name == "PNG";
    if (picture && e->attribute("file")) {
        prepare_picture(e, e->name == "PNG");
        return;
    }
    if (e->name == "Graphic_data" && e->attribute("file")) {
        prepare_graphic_data(e);
        return;
    }
    for (auto& a : e->attributes) {
        // "string.hex" gives the bytes of a text that XML cannot hold as text.
        const bool hex_text = a.key.endsWith(".hex");
        if (!is_byte_string(a.key) && !hex_text)
            continue;
        QByteArray bytes;
        if (!Values::decode_hex(a.value, bytes)) {
            problem(e, QStringLiteral("'%1' must be hexadecimal bytes such as \"A0 05 FF\"").arg(QString::fromUtf8(a.key)));
            continue;
        }
        a.used = a.used || hex_text;
        e->supplied.push_back({hex_text ? a.key.left(a.key.size() - 4) : a.key, bytes, true});
    }
}

void Description::prepare_picture(Xml_element* e, bool png)
{
    e->mark_used("file");
    QString path = QString::fromUtf8(*e->attribute("file"));
    if (QFileInfo(path).isRelative())
        path = QDir(base_dir).filePath(path);
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problem(e, QStringLiteral("cannot read picture '%1': %2").arg(path, f.errorString()));
        return;
    }
    QByteArray content = f.readAll();
    QImage image;
    if (content.isEmpty() || !image.loadFromData(content)) {
        problem(e, QStringLiteral("'%1' is not an image this tool can read").arg(path));
        return;
    }
    if (image.width() > 65535 || image.height() > 65535 || qint64(image.width()) * image.height() > Picture_encoder::MAX_PIXELS) {
        problem(e, QStringLiteral("picture '%1' is too large (%2 x %3)").arg(path).arg(image.width()).arg(image.height()));
        return;
    }
    auto supply = [&](const char* key, const QByteArray& v) {
        if (e->attribute(key) && strcmp(key, "width") != 0)
            warning(e, QStringLiteral("'%1' is taken from the picture file; the value given is ignored").arg(key));
        e->supply(key, v, false);
    };
    if (!e->attribute("width"))
        supply("width", QByteArray::number(image.width()));
    supply("actual_width", QByteArray::number(image.width()));
    supply("actual_height", QByteArray::number(image.height()));
    QByteArray data;
    if (png) {
        data = content;
    } else {
        unsigned format = EIGHT_BIT_COLOUR;
        unsigned options = 0;
        unsigned char transparency = 0;
        std::unique_ptr<Spec_node> node(make_node(e));
        uint8_t v = 0;
        if (node->get_uint8(&v, "format")) {
            if (v > EIGHT_BIT_COLOUR)
                problem(e, QStringLiteral("format %1 is not 0 to 2").arg(v));
            format = std::min<unsigned>(v, EIGHT_BIT_COLOUR);
        }
        if (node->get_uint8(&v, "options"))
            options = v;
        if (const QByteArray* t = e->attribute("transparency_colour"))
            if (!Attribute_colour::get_colour_val(t->constData(), transparency) && !declared_colour(*t, transparency))
                problem(e, QStringLiteral("unknown colour '%1'").arg(QString::fromUtf8(*t)));
        data = Picture_encoder::encode(image, format_t(format),
                                       (options & 4) != 0, transparency);
        // Symbolic formats reach the library as numbers.
        e->supply("format", QByteArray::number(format), false);
    }
    supply("num_bytes", QByteArray::number(data.size()));
    supply("bytes", data);
    e->supply("bytes", data, true);
}

void Description::read_values(Library_output& said)
{
    QSet<Xml_element*> done;
    auto process = [&](Xml_element* e, scale_area_t area) {
        done.insert(e);
        said.set_context([this, e]() { return where(e) + QStringLiteral(": ") + object_label(e->object); });
        e->object->set_by_spec(area);
        const QSet<QString> reported = check_ranges(e);
        if (said.any())
            hear(said, e, object_label(e->object), reported);
    };
    QVector<Xml_element*> built;
    for (Xml_element* e : object_elements)
        if (e->object)
            built.append(e);
    // Masks first, so that the areas they are drawn in reach their children before those read
    // their own values; then whatever has learned its area; then the rest.
    for (Xml_element* e : built)
        if (e->object->get_type() == VT_obj_type::TYPE_DATA_MASK)
            process(e, SCALE_AREA_ACTIVE);
    for (Xml_element* e : built) {
        unsigned t = e->object->get_type();
        if (t == VT_obj_type::TYPE_SOFT_KEY_MASK || t == VT_obj_type::TYPE_KEY)
            process(e, SCALE_AREA_SOFT_KEY);
    }
    for (bool progress = true; progress;) {
        progress = false;
        for (Xml_element* e : built)
            if (!done.contains(e) && e->object->get_scale_area() != SCALE_AREA_NONE) {
                process(e, e->object->get_scale_area());
                progress = true;
            }
    }
    for (Xml_element* e : built)
        if (!done.contains(e))
            process(e, SCALE_AREA_NONE);
}

void Description::hear(Library_output& said, const Xml_element* e, const QString& who, const QSet<QString>& ranges)
{
    for (const Library_output::Line& line : said.take()) {
        const QString clamp = Library_output::clamp_detail(line.text);
        const QString text = clamp.isEmpty() ? line.text : clamp;
        const QString about = who.isEmpty() ? text : who + QStringLiteral(": ") + text;
        // A clamp of a value check_ranges reported is said in the description's own words.
        const bool range_reported = !clamp.isEmpty() && ranges.contains(clamp.section('\'', 1, 1));
        if (line.chatter || Library_output::restated_by_tool(line.text) || range_reported)
            note_list.append(where(e) + QStringLiteral(": ") + about);
        else
            warning(e, about);
    }
}

namespace {

// A numeric attribute's range and the range of its type (a colour is a byte); false for
// other attributes.
struct Range
{
    qint64 min, max;        // the attribute's
    qint64 type_min, type_max;
};

template <class T, Attribute::atype A>
bool numeric_range(Attribute* a, Range& r)
{
    auto* n = dynamic_cast<Attribute_numbers_template<T, A>*>(a);
    if (!n)
        return false;
    // 64-bit values are compared up to the largest signed value.
    const qint64 top = std::numeric_limits<qint64>::max();
    r.min = qint64(n->get_min());
    r.type_min = qint64(std::numeric_limits<T>::min());
    if constexpr (std::is_same<T, uint64_t>::value) {
        r.max = n->get_max() > uint64_t(top) ? top : qint64(n->get_max());
        r.type_max = top;
    } else {
        r.max = qint64(n->get_max());
        r.type_max = qint64(std::numeric_limits<T>::max());
    }
    return true;
}

bool range_of(Attribute* a, Range& r)
{
    return numeric_range<uint8_t, Attribute::ATTR_UINT8>(a, r) || numeric_range<uint16_t, Attribute::ATTR_UINT16>(a, r) ||
           numeric_range<uint32_t, Attribute::ATTR_UINT32>(a, r) || numeric_range<uint64_t, Attribute::ATTR_UINT64>(a, r) ||
           numeric_range<int8_t, Attribute::ATTR_INT8>(a, r) || numeric_range<int16_t, Attribute::ATTR_INT16>(a, r) ||
           numeric_range<int32_t, Attribute::ATTR_INT32>(a, r) || numeric_range<int64_t, Attribute::ATTR_INT64>(a, r);
}

// Whether the text's value lies in [min, max].
bool within(bool negative, quint64 magnitude, qint64 min, qint64 max)
{
    if (negative)
        return min < 0 && magnitude <= quint64(-(min + 1)) + 1;
    return max >= 0 && magnitude <= quint64(max);
}

}

// The library clamps a value outside its attribute's range (and cuts a colour number to its
// low byte): a description names where it gave one. Returns the names of the attributes
// reported.
QSet<QString> Description::check_ranges(Xml_element* e)
{
    QSet<QString> reported;
    VT_obj* obj = e->object;
    for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i) {
        Attribute* a = obj->get_every_attribute(i);
        const QByteArray* text = a && a->name ? e->attribute(a->name) : nullptr;
        Range r{};
        bool negative = false;
        quint64 magnitude = 0;
        if (!text || !range_of(a, r) || !Values::parse_integer(*text, negative, magnitude) ||
            within(negative, magnitude, r.min, r.max))
            continue;
        // A number too wide for the attribute's type was reported when it was read; a colour is
        // read as text and cut to its low byte.
        const bool colour = a->get_type() == Attribute::ATTR_COLOUR;
        if (!colour && !within(negative, magnitude, r.type_min, r.type_max))
            continue;
        const qint64 clamped = negative ? r.min : r.max;
        const QString what = QStringLiteral("'%1' of <%2 name='%3'> is %4, outside its range %5 to %6")
                                 .arg(QString::fromUtf8(a->name), QString::fromUtf8(e->name),
                                      QString::fromUtf8(obj->get_name()), QString::fromUtf8(text->trimmed()))
                                 .arg(r.min)
                                 .arg(r.max);
        reported.insert(QString::fromUtf8(a->name));
        if (!lenient) {
            problem(e, what + " (--lenient takes the nearest value in range)");
            continue;
        }
        warning(e, what + QStringLiteral("; taken as %1").arg(clamped));
        if (auto* c = colour ? dynamic_cast<Attribute_uint8*>(a) : nullptr)
            *c = uint8_t(clamped);
    }
    return reported;
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
