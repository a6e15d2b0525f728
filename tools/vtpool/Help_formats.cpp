#include "tools/vtpool/Help_formats.h"

#include <QRegularExpression>

#include "tools/vtpool/Command.h"
#include "vt_core_version.h"

namespace Vtpool::Help_formats {

namespace {

// Text as roff prints it: backslashes and dashes escaped (a dash in an option must stay a plain
// minus to be copied), and a line that would start with a control character made text.
QString roff(const QString& text)
{
    QString out = text;
    out.replace('\\', "\\e").replace('-', "\\-");
    if (out.startsWith('.') || out.startsWith('\''))
        out.prepend("\\&");
    return out;
}

// A help text: its lines run into paragraphs; lines indented by two spaces are examples,
// shown as written.
QString roff_paragraphs(const QString& help)
{
    QString out;
    bool example = false;
    for (const QString& line : help.split('\n')) {
        const bool indented = line.startsWith("  ");
        if (indented != example)
            out += indented ? ".RS\n.nf\n" : ".fi\n.RE\n";
        example = indented;
        if (line.trimmed().isEmpty())
            out += example ? "\n" : ".PP\n";
        else
            out += roff(indented ? line.mid(2) : line) + "\n";
    }
    if (example)
        out += ".fi\n.RE\n";
    return out;
}

QString roff_option(const Option& o)
{
    QStringList names;
    for (const QString& n : o.names)
        names.append("\\fB" + roff(Option::spelled(n)) + "\\fR");
    QString out = ".TP\n" + names.join(", ");
    if (!o.value_name.isEmpty())
        out += " \\fI" + roff(o.value_name) + "\\fR";
    return out + "\n" + roff(o.help) + (o.required ? " (required)" : "") + "\n";
}

QStringList command_names()
{
    QStringList names;
    for (const Command& c : commands())
        names.append(c.name);
    return names;
}

// What bash offers after an option, judged by the name of its value: the values themselves when
// it lists them ("2|16|256"), folders, files, or nothing for a number, mask, size or name.
QString value_completion(const QString& value_name)
{
    static const QRegularExpression literal_values("^[a-z0-9]+(\\|[a-z0-9]+)+$");
    if (literal_values.match(value_name).hasMatch())
        return QStringLiteral("COMPREPLY=($(compgen -W \"%1\" -- \"$cur\"))").arg(value_name.split('|').join(' '));
    if (value_name == "DIR")
        return "_vtpool_files -d";
    if (value_name.contains("FILE") || value_name.contains('.'))
        return "_vtpool_files -f";
    return QString(); // nothing to offer
}

}

QString man_page()
{
    // No hyphenation: option and file names must stay whole.
    QString page = QStringLiteral(".TH VTPOOL 1 \"\" \"vtpool %1\" \"User Commands\"\n.nh\n").arg(VT_CORE_VERSION);
    page += ".SH NAME\nvtpool \\- " + roff(program_summary) + "\n";
    page += ".SH SYNOPSIS\n"
            ".B vtpool\n.I COMMAND\n.RI [ ARGS ]\n.br\n"
            ".B vtpool\n.I COMMAND\n.B \\-\\-help\n.br\n"
            ".B vtpool help\n.RI [ COMMAND ]\n";
    page += ".SH DESCRIPTION\n" + roff(input_note) + "\nEvery command answers \\-\\-help with the text given here.\n";
    page += ".SH COMMANDS\n";
    for (const Command& c : commands()) {
        page += ".SS " + roff(command_synopsis(c)) + "\n" + roff_paragraphs(c.help);
        for (const Option& o : c.options)
            page += roff_option(o);
    }
    page += ".SH EXIT STATUS\n";
    for (const Exit_meaning& e : exit_meanings())
        page += QStringLiteral(".TP\n.B %1\n%2\n").arg(e.status).arg(roff(e.meaning));
    return page;
}

QString bash_completion()
{
    const QString names = command_names().join(' ');
    QString script = QStringLiteral(
        "# bash completion for vtpool %1, written by vtpool help --bash-completion\n"
        "_vtpool_files()\n"
        "{\n"
        "    compopt -o filenames 2>/dev/null\n"
        "    mapfile -t COMPREPLY < <(compgen \"$1\" -- \"$cur\")\n"
        "}\n"
        "\n"
        "_vtpool()\n"
        "{\n"
        "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}\n"
        "    # bash splits --name=VALUE at the '='.\n"
        "    if [[ $cur == = ]]; then\n"
        "        cur=\n"
        "    elif [[ $prev == = ]]; then\n"
        "        prev=${COMP_WORDS[COMP_CWORD-2]}\n"
        "    fi\n"
        "    if ((COMP_CWORD == 1)); then\n"
        "        COMPREPLY=($(compgen -W \"%2 help --help --version\" -- \"$cur\"))\n"
        "        return\n"
        "    fi\n"
        "    local options arguments=1\n"
        "    case ${COMP_WORDS[1]} in\n")
                          .arg(VT_CORE_VERSION, names);
    for (const Command& c : commands()) {
        QStringList spelled;
        // The options that take a value, grouped by what is offered for it.
        QStringList actions;
        QVector<QStringList> taking;
        for (const Option& o : c.options) {
            QStringList option_names;
            for (const QString& n : o.names)
                option_names.append(Option::spelled(n));
            spelled += option_names;
            if (o.value_name.isEmpty())
                continue;
            const QString action = value_completion(o.value_name);
            if (!actions.contains(action)) {
                actions.append(action);
                taking.append(QStringList());
            }
            taking[actions.indexOf(action)] += option_names;
        }
        spelled.append("--help");
        script += QStringLiteral("    %1)\n        options=\"%2\"\n").arg(c.name, spelled.join(' '));
        if (c.arguments.isEmpty())
            script += "        arguments=0\n";
        if (!actions.isEmpty()) {
            script += "        case $prev in\n";
            for (int i = 0; i < actions.size(); ++i)
                script += "        " + taking[i].join('|') + ")\n" +
                          (actions[i].isEmpty() ? QString() : "            " + actions[i] + "\n") +
                          "            return\n            ;;\n";
            script += "        esac\n";
        }
        script += "        ;;\n";
    }
    script += QStringLiteral("    help)\n"
                             "        ((COMP_CWORD == 2)) && COMPREPLY=($(compgen -W \"%1\" -- \"$cur\"))\n"
                             "        return\n"
                             "        ;;\n"
                             "    *) return ;;\n"
                             "    esac\n"
                             "    if [[ $cur == -* ]]; then\n"
                             "        COMPREPLY=($(compgen -W \"$options\" -- \"$cur\"))\n"
                             "    elif ((arguments)); then\n"
                             "        _vtpool_files -f\n"
                             "    fi\n"
                             "}\n"
                             "complete -F _vtpool vtpool\n")
                  .arg(names);
    return script;
}

}
