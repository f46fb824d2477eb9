#include "check_report.h"

#include "message.h"

namespace korvex {

namespace {

std::string countOf(Findings& findings, Severity severity)
{
    TextOutput count;
    count << severityText(severity, findings.language()) << ' ' << findings.count(severity);
    return count.text();
}

}  // namespace

std::string_view pathOf(const CheckRequest& request, CheckedFile file)
{
    switch (file) {
    case CheckedFile::Points:
        return request.files.points;
    case CheckedFile::Description:
        return request.files.description;
    case CheckedFile::Dust:
        return request.files.dust;
    case CheckedFile::Groups:
        break;
    }
    return request.groups;
}

void printFindings(TextOutput& out, const CheckRequest& request, Findings& findings)
{
    const std::string source = findings.text("zdroj", "source");
    for (const Finding& finding : findings.sorted()) {
        const RuleText& rule = ruleText(finding.rule);
        out << pathOf(request, finding.place.file) << ':' << finding.place.line << ':' << finding.place.column << ": "
            << severityText(rule.severity, findings.language()) << " [" << rule.name << "] ";
        if (finding.hasSource)
            out << source << ' ' << finding.source << ": ";
        out << findings.message(finding) << '\n';
    }
}

void printSummary(TextOutput& out, const CheckedInventory& checked, Findings& findings)
{
    out << findings.text("Zdrojů: ", "Sources: ") << checked.sources << findings.text(", nálezů: ", ", findings: ")
        << findings.count();
    if (findings.count() == 0) {
        out << '\n';
        return;
    }
    out << " (" << countOf(findings, Severity::Error) << ", " << countOf(findings, Severity::Warning) << ", "
        << countOf(findings, Severity::Note) << ")\n";
    for (const RuleText& rule : allRules()) {
        if (findings.count(rule.rule) > 0)
            out << "  " << rule.name << ": " << findings.count(rule.rule) << '\n';
    }
    if (findings.sorted().size() < findings.count()) {
        out << findings.text("Vypsány jen první: ", "Only the first are listed: ") << findings.sorted().size()
            << findings.text(" (více s --max, méně druhů s --only a --skip)\n",
                   " (more with --max, fewer kinds with --only and --skip)\n");
    }
}

}  // namespace korvex
