#include "tools/vtpool/Terminal_options.h"

#include <iostream>

#include "tools/pool/Labels.h"
#include "tools/terminal/Terminal_adaptation.h"
#include "tools/terminal/Terminal_file.h"
#include "tools/terminal/Terminal_properties.h"

namespace Vtpool {

QVector<Option> Terminal_options::all()
{
    QVector<Option> options{{{"terminal"}, "FILE", "the terminal, from an INI or JSON file (examples/terminals/)"}};
    for (const VT::Terminal_property& p : VT::terminal_properties())
        options.append({{p.name}, p.value_name, p.help});
    options.append({{"design-size"}, "WxH", "the data-mask size the pool was designed for (scales to --mask-size)"});
    options.append({{"design-key-size"}, "WxH", "the soft-key size the pool was designed for (scales to --key-size)"});
    return options;
}

QVector<Option> Terminal_options::only(const QStringList& names)
{
    QVector<Option> chosen;
    for (const Option& o : all())
        if (o.names.first() == "terminal" || names.contains(o.names.first()))
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

    // The file first: the options given beside it override what it says.
    QStringList in_file;
    if (in.is_set("terminal")) {
        QString error;
        if (!VT::Terminal_file::load(in.value("terminal"), t, &error, &in_file))
            return fail(error);
    }
    for (const VT::Terminal_property& p : VT::terminal_properties())
        if (in.is_set(p.name) && !p.set(t, in.value(p.name)))
            return fail(QStringLiteral("--%1 %2").arg(p.name, p.takes));
    const QString problem = VT::terminal_problem(t);
    if (!problem.isEmpty())
        return fail(problem);

    // A command that scales asks for both sizes of an area: the terminal's and the designed one.
    struct Area
    {
        const char* terminal_size;
        const char* design_size;
        uint16_t *width, *height;
    } const areas[] = {{"mask-size", "design-size", &target.design.mask_width, &target.design.mask_height},
                       {"key-size", "design-key-size", &target.design.key_width, &target.design.key_height}};
    for (const Area& a : areas) {
        if (!in.declares(a.design_size))
            continue;
        const bool terminal_given = in.is_set(a.terminal_size) || in_file.contains(a.terminal_size);
        if (in.is_set(a.design_size) && !terminal_given)
            return fail(QStringLiteral("--%1 needs the terminal's --%2 (or %2 in --terminal FILE)")
                            .arg(a.design_size, a.terminal_size));
        if (in.is_set(a.terminal_size) && !in.is_set(a.design_size))
            return fail(QStringLiteral("--%1 and --%2 go together").arg(a.terminal_size, a.design_size));
        if (!in.is_set(a.design_size))
            continue;
        unsigned w = 0, h = 0;
        if (!VT::parse_terminal_size(in.value(a.design_size), 65535, w, h, false))
            return fail(QStringLiteral("--%1 takes WIDTHxHEIGHT").arg(a.design_size));
        *a.width = uint16_t(w);
        *a.height = uint16_t(h);
    }
    return true;
}

bool Terminal_options::adapt(const Invocation& in, Object_pool& pool, const Target& target, bool is_description,
                             bool downgrade)
{
    QStringList problems, warnings;
    if (!is_description && (target.design.mask_width || target.design.key_width))
        for (const VT::Scaling::Area_note& note : VT::Scaling::propagate_areas(pool))
            warnings.append(VT::object_label(note.object) + ": " + note.text);
    VT::Terminal_adaptation::Options options;
    options.design = target.design;
    options.downgrade = downgrade;
    const bool adapted = VT::Terminal_adaptation::adapt(pool, target.terminal, options, problems, warnings);
    in.print_once(warnings, "warning: ");
    print_lines(problems, "error: ");
    if (!adapted)
        std::cerr << "error: the pool cannot be made one this terminal loads; nothing written" << std::endl;
    return adapted;
}

}
