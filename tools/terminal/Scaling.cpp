#include "tools/terminal/Scaling.h"

#include <QSet>
#include <QVector>

#include "tools/pool/Library_output.h"
#include "tools/pool/Object_references.h"

namespace VT {

Scaling::Ratio Scaling::mask_ratio(const Terminal& terminal, const Design_size& design)
{
    if (!design.mask_width || !design.mask_height)
        return Ratio();
    return {true, terminal.data_mask_width, terminal.data_mask_height, design.mask_width, design.mask_height};
}

Scaling::Ratio Scaling::key_ratio(const Terminal& terminal, const Design_size& design)
{
    if (!design.key_width || !design.key_height)
        return Ratio();
    return {true, terminal.key_width, terminal.key_height, design.key_width, design.key_height};
}

QVector<Scaling::Area_note> Scaling::propagate_areas(Object_pool& pool)
{
    // The library warns each time an object of one area is reached from the other, which for
    // an object many keys and masks share is many times, and on the standard error stream.
    Library_output said;
    QVector<Area_note> notes;
    QSet<QPair<VT_obj*, QString>> heard;
    auto hear = [&](VT_obj* obj) {
        for (const Library_output::Line& line : said.take()) {
            if (line.chatter || line.text.startsWith('\t'))
                continue; // the library's explanation on a line of its own
            QString text = line.text;
            if (text.contains(QLatin1String("is used in a soft key area and is also used in the active area")))
                text = QStringLiteral("drawn both on a soft key and in the data mask: scaled, it takes the %1 ratio only")
                           .arg(obj->get_scale_area() == SCALE_AREA_SOFT_KEY ? "soft-key" : "data-mask");
            if (!heard.contains({obj, text})) {
                heard.insert({obj, text});
                notes.append({obj, text});
            }
        }
    };
    auto walk = [&](VT_obj* root, scale_area_t area) {
        QSet<VT_obj*> visited;
        QVector<VT_obj*> todo{root};
        visited.insert(root);
        while (!todo.isEmpty()) {
            VT_obj* obj = todo.takeLast();
            for (const Object_reference& ref : object_references(*obj)) {
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
                hear(target);
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
    return notes;
}

const Scaling::Ratio& Scaling::ratio_for(const VT_obj& obj, const Ratio& mask, const Ratio& key)
{
    scale_area_t area = obj.__get_scale_area_type();
    if (area == SCALE_AREA_NONE)
        area = obj.get_scale_area();
    return area == SCALE_AREA_SOFT_KEY ? key : mask;
}

void Scaling::scale(Object_pool& pool, const Ratio& mask, const Ratio& key)
{
    for (VT_obj* obj : pool.objects()) {
        const Ratio& r = ratio_for(*obj, mask, key);
        if (r.active)
            obj->set_scale(r.num_x, r.num_y, r.den_x, r.den_y);
    }
}

}
