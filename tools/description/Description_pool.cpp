// What a description says of its pool as a whole: the sizes and the form of version 6 objects
// given on <object_pool>, the justification of placed children in those sizes, attributes no
// one used, and the languages of its texts.
#include <cstring>

#include "tools/description/Attribute_names.h"
#include "tools/description/Description.h"
#include "tools/description/Values.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Object_factory.h"

namespace VT {

bool Description::read_vt6_objects()
{
    Vt6_objects form = Vt6_objects::legacy;
    if (const QByteArray* text = root->attribute("vt6_objects")) {
        root->mark_used("vt6_objects");
        if (!parse_vt6_objects(*text, form)) {
            problem(root.get(), QStringLiteral("vt6_objects is \"legacy\" or \"iso\", not \"%1\"").arg(QString::fromUtf8(*text)));
            return false;
        }
    }
    pool->set_vt6_objects(form);
    // Types 46 and 47 have a class in each form; a pool holds one form only, since its bytes
    // cannot tell them apart.
    bool ok = true;
    for (const Xml_element* e : object_elements) {
        const Object_factory::Entry* entry = Object_factory::find(e->name);
        if (!entry || !entry->in_pool_files() || entry->in_form(form))
            continue;
        const unsigned byte = unsigned(entry->type) & 0xFF;
        const Vt6_objects other = form == Vt6_objects::iso ? Vt6_objects::legacy : Vt6_objects::iso;
        QString instead;
        for (const Object_factory::Entry* c : Object_factory::all())
            if ((unsigned(c->type) & 0xFF) == byte && c->in_form(form))
                instead = QStringLiteral(": use <%1>").arg(QString::fromLatin1(c->name()));
        problem(e, QStringLiteral("<%1> is type %2 in the %3 form of version 6 objects, and this pool has the %4 form "
                                  "(vt6_objects=\"%4\" on <object_pool>)%5")
                       .arg(QString::fromUtf8(e->name))
                       .arg(byte)
                       .arg(QString::fromLatin1(vt6_objects_name(other)), QString::fromLatin1(vt6_objects_name(form)),
                            instead.isEmpty() ? QStringLiteral(": set vt6_objects=\"%1\"").arg(QString::fromLatin1(vt6_objects_name(other)))
                                              : instead));
        ok = false;
    }
    return ok;
}

bool Description::root_size(const char* key, int& w, int& h)
{
    const QByteArray* v = root->attribute(key);
    if (!v)
        return false;
    root->mark_used(key);
    QList<QByteArray> parts = v->toLower().split('x');
    bool ok_w = false, ok_h = false;
    if (parts.size() == 1)
        parts.append(parts[0]);
    if (parts.size() == 2) {
        w = parts[0].trimmed().toInt(&ok_w);
        h = parts[1].trimmed().toInt(&ok_h);
    }
    if (!ok_w || !ok_h || w < 1 || h < 1 || w > 32767 || h > 32767) {
        problem(root.get(), QStringLiteral("%1 must be a size such as 480 or 60x60, not '%2'").arg(key, QString::fromUtf8(*v)));
        return false;
    }
    return true;
}

void Description::justify()
{
    int mask_w = 0, mask_h = 0, key_w = 0, key_h = 0;
    bool have_mask = root_size("mask_size", mask_w, mask_h);
    bool have_key = root_size("key_size", key_w, key_h);
    for (Xml_element* e : object_elements) {
        VT_obj* obj = e->object;
        if (!obj)
            continue;
        int at = obj->find_attribute("child_location");
        auto* list = at < 0 ? nullptr
                            : dynamic_cast<Attribute_list<Attribute_object_placement>*>(obj->get_every_attribute(uint16_t(at)));
        if (!list)
            continue;
        bool justified = false;
        for (uint32_t i = 0; i < list->held(); ++i)
            justified = justified || (*list)[i].get_justification() != 0;
        if (!justified)
            continue;
        // The area the children are laid out in: the object's own size (a button keeps 4 pixels
        // of border on each side), or the size of the mask or key area it is shown in.
        int w = obj->get_width(), h = obj->get_height();
        unsigned type = obj->get_type();
        if (type == VT_obj_type::TYPE_BUTTON) {
            w -= 8;
            h -= 8;
        } else if (type == VT_obj_type::TYPE_DATA_MASK || type == VT_obj_type::TYPE_ALARM_MASK) {
            if (!have_mask) {
                problem(e, QStringLiteral("justified children need mask_size on <object_pool>"));
                continue;
            }
            w = mask_w;
            h = mask_h;
        } else if (type == VT_obj_type::TYPE_KEY) {
            if (!have_key) {
                problem(e, QStringLiteral("justified children need key_size on <object_pool>"));
                continue;
            }
            w = key_w;
            h = key_h;
        } else if (w <= 0 && h <= 0) {
            problem(e, QStringLiteral("<%1> has no size to justify its children in").arg(QString::fromUtf8(e->name)));
            continue;
        }
        const VT_obj::Lock guard(*obj);
        obj->justify(*list, int16_t(std::max(w, 0)), int16_t(std::max(h, 0)));
    }
}

void Description::report_unused(const Xml_element* e)
{
    if (e == root.get()) {
        for (const auto& a : e->attributes)
            if (!a.used && a.key != "mask_size" && a.key != "key_size")
                warning(e, QStringLiteral("attribute '%1' of <object_pool> is not used").arg(QString::fromUtf8(a.key)));
    } else if (e->name != "colour")
        for (const auto& a : e->attributes)
            if (!a.used) {
                const Xml_element* owner = e;
                while (owner && !owner->is_object())
                    owner = owner->parent;
                warning(e, QStringLiteral("attribute '%1' of <%2> is not used%3")
                               .arg(QString::fromUtf8(a.key), QString::fromUtf8(e->name),
                                    owner && owner->object ? Attribute_names::suggestion(e->name, a.key)
                                                           : " (its object was not built)"));
            }
    for (const auto& c : e->children)
        report_unused(c.get());
}

void Description::read_translations()
{
    auto find = [this](const QByteArray& text) -> Xml_element* {
        bool negative = false;
        quint64 id = 0;
        if (Values::parse_integer(text, negative, id))
            return negative || id >= VT_obj::NULL_ID ? nullptr : by_id.value(uint16_t(id), nullptr);
        return by_name.value(text, nullptr);
    };
    QStringList found;
    texts.read(*root, object_elements, find, file, found);
    for (const QString& p : found)
        if (!problem_list.contains(p))
            problem_list.append(p);
    const QList<QByteArray>& codes = texts.languages();
    if (!language.isEmpty() && !codes.contains(language))
        problem(root.get(), codes.isEmpty()
                                ? QStringLiteral("there is no '%1' text: the description declares no languages "
                                                 "(languages=\"en de\" on <object_pool>)")
                                      .arg(QString::fromUtf8(language))
                                : QStringLiteral("'%1' is not among the description's languages (%2)")
                                      .arg(QString::fromUtf8(language), QString::fromUtf8(codes.join(' '))));
}

void Description::apply_language()
{
    if (language.isEmpty() || language == texts.default_language())
        return;
    for (const Translations::Object_texts& o : texts.objects()) {
        QByteArray bytes;
        if (texts.bytes_in(o, language, bytes))
            o.element->supply("string", bytes, true);
        else if (Translations::translatable(o.default_text))
            warning(o.element, QStringLiteral("'%1' has no '%2' text; the default \"%3\" is used")
                                   .arg(QString::fromUtf8(o.name), QString::fromUtf8(language), o.default_text));
    }
}

}
