#ifndef TOOLS_CHECK_RULES_H
#define TOOLS_CHECK_RULES_H

#include <QByteArray>
#include <QHash>
#include <QVector>
#include <memory>
#include <vector>

#include "tools/pool/Labels.h"
#include "tools/pool/Object_references.h"
#include "tools/check/Checker.h"
#include "tools/check/Macro_commands.h"

namespace VT {
namespace Check {

class Context;

// One rule: an id to name it by, its severity, what it checks, and the check itself.
struct Rule
{
    const char* id;
    Severity severity;
    const char* summary;
    void (*run)(Context& c);
};

// Every rule, in the order they run.
const std::vector<Rule>& rules();
const Rule* find_rule(const QString& id);

// What the rules share while they check one pool: the objects, what each refers to (walked
// once for all rules), the commands of each macro, and the findings so far.
class Context
{
public:
    Context(Object_pool& pool, const Source& source, const Options& options);

    Object_pool& pool;
    const Source& source;
    const Options& options;
    const QVector<VT_obj*>& objects; // pool order
    Result result;

    int size() const { return objects.size(); }
    VT_obj* find(uint16_t id) const { return id == VT_obj::NULL_ID ? nullptr : pool.find(id); }
    // The position of an object of the pool in pool order.
    int index_of(const VT_obj* obj);
    // Every reference object i makes.
    const QVector<Object_reference>& references(int i);
    // The bytes and commands of macro i (empty for other objects).
    const QByteArray& macro_bytes(int i);
    const QVector<Macro_command>& commands(int i);
    Location location(int i) const;

    // Records a finding of the running rule about object i (-1: the pool as a whole).
    void report(int i, const QString& attribute, const QString& value, const QString& message,
                const QString& hint = QString());
    void set_rule(const Rule* rule) { running = rule; }
    // Whether the findings reached options.max_findings: the rules may stop looking.
    bool full() const { return options.max_findings > 0 && result.findings.size() >= options.max_findings; }
    // The object of each finding, in the order of result.findings.
    const QVector<int>& finding_objects() const { return finding_at; }

private:
    const Rule* running = nullptr;
    std::vector<std::unique_ptr<QVector<Object_reference>>> refs;
    QHash<int, QByteArray> macros;
    QHash<int, QVector<Macro_command>> decoded;
    QHash<const VT_obj*, int> positions;
    QVector<int> finding_at;
};

// "'name' (Type id)"
QString label(const VT_obj* obj);

}
}

#endif
