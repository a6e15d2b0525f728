#ifndef TOOLS_LIBRARY_OUTPUT_H
#define TOOLS_LIBRARY_OUTPUT_H

#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <memory>

namespace VT {

// What the library says on its own while the tool works with it: its debug prints and the
// lines it writes to the standard streams (values clamped, references it cannot resolve,
// "Deser:" reasons). While a capture is alive, those lines are collected instead of printed,
// each with the object the tool was working on, so that the tool can show each once, say
// which object it concerns, and keep back what it already reports in its own words.
//
// A line that announces the end of the process ("FATAL ERROR!") cannot wait for the tool: it
// goes to standard error at once, with the object named.
//
// What the library writes to standard output is chatter (an array read from a description
// prints its bytes): it is dropped, unless the capture is asked to keep it.
class Library_output
{
public:
    struct Line
    {
        QString context; // the object concerned, as set_context gave it
        QString text;    // the library's line, without its line end
        bool chatter = false; // written to standard output
    };

    explicit Library_output(bool keep_chatter = false);
    ~Library_output();
    Library_output(const Library_output&) = delete;
    Library_output& operator=(const Library_output&) = delete;

    // Names the object the lines that follow concern, such as "pool.xml:12: 'out' (Output_number 3)":
    // asked only when a line comes, so that naming objects costs nothing while all is quiet.
    void set_context(std::function<QString()> context);
    // Whether anything was said since the last take().
    bool any() const;
    // The lines said since the last take(); an unfinished last line counts as a line. Kept
    // chatter comes after the other lines.
    QVector<Line> take();

    // A clamp the library reported: "'options' 200 is above its maximum 7, so 7 was kept".
    // Empty when `text` is no such line.
    static QString clamp_detail(const QString& text);
    // Whether the tool states the problem of this line in its own words (an unknown
    // reference, an unreadable colour, why bytes did not read), so that the line itself is
    // only worth showing on request.
    static bool restated_by_tool(const QString& text);
    // "context: text"
    static QString format(const Line& line);

    struct State;

private:
    std::unique_ptr<State> state;
};

}

#endif
