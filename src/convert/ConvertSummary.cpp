#include "convert/ConvertSummary.h"

#include "framework/Messages.h"

ConversionSummary::ConversionSummary(int title, const std::string& source, const std::string& destination)
    : titleId(title) {
    Text(IDS_SOURCE_FILE, "source", source, true);
    Text(IDS_DESTINATION_FILE, "destination", destination, true);
}

ConversionSummary& ConversionSummary::Text(int labelId, const char* key, std::string value, bool parameter) {
    fields.push_back({labelId, key, ResultValue(std::move(value)), parameter});
    return *this;
}

ConversionSummary& ConversionSummary::Count(int labelId, const char* key, long value, bool parameter) {
    fields.push_back({labelId, key, ResultValue(value), parameter});
    return *this;
}

ConversionSummary& ConversionSummary::Kind(int kind) {
    Text(IDS_DATA_KIND, "kind_text", op_KindText(kind));
    return Count(0, "kind", kind);
}

ConversionSummary& ConversionSummary::Precision(int isDouble) {
    return Text(IDS_PRECISION, "precision", isDouble ? "Double" : "Single");
}

ResultRecord conv_ResultRecord(const ConversionSummary& summary) {
    ResultRecord record;
    for (const SummaryField& field : summary.fields)
        (field.parameter ? record.parameters : record.results).Set(field.key, field.value);
    return record;
}
