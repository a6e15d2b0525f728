#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

QVector<Option> Terminal_options::all()
{
    return {
        {{"colours"}, "2|16|256", "the terminal's colours (default 256)"},
        {{"small-fonts"}, "MASK", "small font sizes the terminal supports (bits 0-6, default 255)"},
        {{"large-fonts"}, "MASK", "large font sizes the terminal supports (default 255)"},
        {{"font-styles"}, "MASK", "font styles the terminal supports (default 255)"},
        {{"vt-version"}, "N", "the VT version the terminal speaks (2-6)"},
        {{"design-size"}, "WxH", "the data-mask size the pool was designed for"},
        {{"mask-size"}, "N|WxH", "the terminal's data-mask size (with --design-size: scale to it)"},
        {{"design-key-size"}, "WxH", "the soft-key size the pool was designed for"},
        {{"key-size"}, "WxH", "the terminal's soft-key size (with --design-key-size: scale to it)"},
        {{"soft-keys"}, "N", "the soft keys the terminal shows beside the mask (0-64, default 6)"},
    };
}

QVector<Option> Terminal_options::only(const QStringList& names)
{
    QVector<Option> chosen;
    for (const Option& o : all())
        if (names.contains(o.names.first()))
            chosen.append(o);
    return chosen;
}

bool Terminal_options::read(const Invocation& in, Target& target)
{
    auto fail = [&](const QString& text) {
        in.usage_error(text);
        return false;
    };
    VT::Terminal& t = target.terminal;
    for (const Option& o : all())
        target.named = target.named || in.is_set(o.names.first());

    if (in.is_set("colours")) {
        const QString c = in.value("colours");
        if (c != "2" && c != "16" && c != "256")
            return fail("--colours takes 2, 16 or 256");
        t.colours = c.toInt();
    }
    struct Mask_option
    {
        const char* name;
        uint8_t* field;
    } masks[] = {{"small-fonts", &t.small_fonts}, {"large-fonts", &t.large_fonts}, {"font-styles", &t.font_styles}};
    for (const Mask_option& m : masks)
        if (in.is_set(m.name)) {
            unsigned v = 0;
            if (!Invocation::parse_number(in.value(m.name), 255, v))
                return fail(QStringLiteral("--%1 takes a mask from 0 to 255").arg(m.name));
            *m.field = uint8_t(v);
        }
    if (in.is_set("vt-version")) {
        unsigned version = 0;
        if (!Invocation::parse_number(in.value("vt-version"), 255, version) || version < 2)
            return fail("--vt-version takes a VT version such as 3 or 6");
        t.vt_version = int(version);
    }

    // A command that scales asks for both sizes of an area: the terminal's and the designed one.
    if (in.declares("design-size") && in.is_set("mask-size") != in.is_set("design-size"))
        return fail("--mask-size and --design-size go together");
    if (in.declares("design-key-size") && in.is_set("key-size") != in.is_set("design-key-size"))
        return fail("--key-size and --design-key-size go together");
    if (in.is_set("mask-size")) {
        unsigned w = 0, h = 0;
        const QString size = in.value("mask-size");
        if (Invocation::parse_number(size, 8192, w) && w > 0)
            h = w;
        else if (!Invocation::parse_size(size, w, h) || w > 8192 || h > 8192)
            return fail("--mask-size takes the data-mask size in pixels: N or WIDTHxHEIGHT (at most 8192)");
        t.data_mask_width = uint16_t(w);
        t.data_mask_height = uint16_t(h);
    }
    if (in.is_set("design-size")) {
        unsigned w = 0, h = 0;
        if (!Invocation::parse_size(in.value("design-size"), w, h))
            return fail("--design-size takes WIDTHxHEIGHT");
        target.design.mask_width = uint16_t(w);
        target.design.mask_height = uint16_t(h);
    }
    if (in.is_set("key-size")) {
        unsigned w = 0, h = 0;
        if (!Invocation::parse_size(in.value("key-size"), w, h) || w > 8192 || h > 8192)
            return fail("--key-size takes WIDTHxHEIGHT (at most 8192)");
        t.key_width = uint16_t(w);
        t.key_height = uint16_t(h);
    }
    if (in.is_set("design-key-size")) {
        unsigned w = 0, h = 0;
        if (!Invocation::parse_size(in.value("design-key-size"), w, h))
            return fail("--design-key-size takes WIDTHxHEIGHT");
        target.design.key_width = uint16_t(w);
        target.design.key_height = uint16_t(h);
    }
    if (in.is_set("soft-keys")) {
        unsigned n = 0;
        if (!Invocation::parse_number(in.value("soft-keys"), 64, n))
            return fail("--soft-keys takes a number from 0 to 64");
        t.physical_soft_keys = uint8_t(n);
    }
    return true;
}

void Terminal_options::scale(Object_pool& pool, const Target& target, bool is_description)
{
    const VT::Scaling::Ratio mask_ratio = VT::Scaling::mask_ratio(target.terminal, target.design);
    const VT::Scaling::Ratio key_ratio = VT::Scaling::key_ratio(target.terminal, target.design);
    if (!mask_ratio.active && !key_ratio.active)
        return;
    if (!is_description)
        VT::Scaling::propagate_areas(pool);
    VT::Scaling::scale(pool, mask_ratio, key_ratio);
}

}
