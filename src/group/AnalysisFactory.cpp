#include "group/AnalysisFactory.h"

#include <map>

namespace {

std::map<std::string, AnalysisFactory>& Table() {
    static std::map<std::string, AnalysisFactory> table;
    return table;
}

}  // namespace

AnalysisFactory grp_SetAnalysis(const std::string& templateName, const AnalysisFactory& factory) {
    AnalysisFactory previous;
    auto it = Table().find(templateName);
    if (it != Table().end()) previous = it->second;
    if (factory.createDialog || factory.createDocument)
        Table()[templateName] = factory;
    else
        Table().erase(templateName);
    return previous;
}

const AnalysisFactory* grp_FindAnalysis(const std::string& templateName) {
    auto it = Table().find(templateName);
    return (it != Table().end() && it->second.createDialog && it->second.createDocument) ? &it->second : nullptr;
}
