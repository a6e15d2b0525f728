#ifndef TOOLS_VTPOOL_HELP_FORMATS_H
#define TOOLS_VTPOOL_HELP_FORMATS_H

#include <QString>

namespace Vtpool {

// vtpool's help in the forms it is installed in, written from the command table so that they
// list the same commands and options as --help: the build writes them with
// vtpool help --man and vtpool help --bash-completion.
namespace Help_formats {

// The manual page (man -l vtpool.1 shows it).
QString man_page();
// A bash completion script for vtpool's commands, options and their values.
QString bash_completion();

}

}

#endif
