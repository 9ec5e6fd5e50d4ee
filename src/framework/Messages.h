// The string table: every user-visible message and report string, by id.
// An id doubles as the error code that documents and the data-file layer return.
#pragma once

#include <string>

// Ids that the code names; the rest are used by number beside their text.
enum MessageId : int {
    IDS_NO_FILE_OPEN = 23,  // open with mustExist on a missing file; no text of its own
    IDS_SOURCE_NOT_SPECIFIED = 15803,
    IDS_INVALID_REP_TREATMENT = 15804,
    IDS_FILE_KIND_MISMATCH = 15806,
    IDS_APPEND_NEEDS_LUMPED = 15807,
    IDS_APPEND_NEEDS_NONLUMPED = 15808,
    IDS_MAX_LAGS_POSITIVE = 15809,
    IDS_TIME_PERSISTENT = 15810,
    IDS_FILE_NOT_FOUND = 15811,
    IDS_BAD_CONFIDENCE_LEVEL = 15813,
    IDS_NO_FILES = 15814,
    IDS_WINDOW_TOO_SMALL = 15816,
    IDS_BAD_BEGIN_TIME = 15817,
    IDS_BAD_END_TIME = 15818,
    IDS_BAD_MIN_VALUE = 15819,
    IDS_BAD_MAX_VALUE = 15820,
    IDS_INVALID_DATA_FILE = 15821,
    IDS_ENDING_VALUE = 15829,
    IDS_ENDING_TIME = 15830,
    IDS_TOO_FEW_POINTS = 15831,
    IDS_OPEN_ERROR = 15832,
    IDS_WRITE_ERROR = 15833,
    IDS_READ_ERROR = 15834,
    IDS_END_OF_FILE = 15836,
    IDS_VALUE_LABEL = 15839,
    IDS_TIME_LABEL = 15840,
    IDS_NO_SELECTION = 15841,
    // The file conversions: summary labels, then messages that name a line of a text file.
    IDS_EXPORT_SUMMARY = 15873,
    IDS_DESTINATION_FILE = 15874,
    IDS_REPLICATIONS = 15875,
    IDS_OBSERVATIONS = 15876,
    IDS_RECORDS = 15877,
    IDS_IMPORT_SUMMARY = 15878,
    IDS_DATA_KIND = 15879,
    IDS_PRECISION = 15880,
    IDS_LOAD_SUMMARY = 15881,
    IDS_LINES_READ = 15882,
    IDS_DIF_SUMMARY = 15884,
    IDS_SOURCE_FILE = 15885,
    IDS_APPEND_SUMMARY = 15886,
    IDS_REPS_BEFORE = 15887,
    IDS_REPS_AFTER = 15888,
    IDS_RECORDS_APPENDED = 15889,
    IDS_LINE_NOT_A_PAIR = 15890,
    IDS_LINE_DECIMAL_COMMA = 15891,
    IDS_LINE_NEGATIVE_TIME = 15892,
    IDS_LINE_BAD_HEADER = 15893,
    IDS_TEXT_NO_OBSERVATIONS = 15894,
    IDS_BAD_DATA_KIND = 15895,
    IDS_DEST_NOT_SPECIFIED = 15896,
    IDS_TEXT_CUT_SHORT = 15897,
    IDS_VALUE_RANGE = 15900,
    IDS_NO_OBSERVATIONS = 15901,
    IDS_SD_INTERVAL_ERROR = 15906,
    IDS_INTERVAL_ERROR = 15907,
    IDS_ALREADY_IN_GROUP = 15905,
    IDS_SAME_OUTPUT_FILE = 15925,
    IDS_FILES_KIND_MISMATCH = 15926,
    IDS_INVALID_NUMBER = 15927,
    IDS_INVALID_HEADER = 15928,
    IDS_ZERO_DENOMINATOR = 15930,
    IDS_NO_OBSERVATIONS_FOUND = 15931,
    IDS_LUMPED_NOT_ALLOWED = 15932,
    IDS_BUFFER_EXCEEDED = 15934,
    IDS_NOT_ENOUGH_REPS = 15940,
    IDS_TEXT_TOO_LONG = 15944,
    IDS_TEMP_FILE_ERROR = 15945,
    IDS_ANOVA_TWO_FILES = 16005,
    IDS_ANOVA_TWO_OBSERVATIONS = 16006,
    IDS_ANOVA_NO_ERROR_DF = 16007,
    IDS_ANOVA_NO_VARIATION = 16008,
    IDS_ANOVA_CONSTANT_FILE = 16009,
    IDS_ANOVA_REPORT_TITLE = 16010,
    IDS_ANOVA_GRAPH_TITLE = 16011,
    IDS_ERROR_ACCESSING_FILE = 16050,
    // The framework's own messages, above the component's range.
    IDS_FAILED_TO_OPEN_DOC = 61697,
    IDS_FAILED_TO_SAVE_DOC = 61698,
    IDS_BAD_FORMAT = 61699,
    // The dialog framework's own range check of a real edit holding 0 to 999999.
    IDP_REAL_RANGE_0_999999 = 61700,
};

// The text of a string id; empty for an id the table does not hold.
const std::string& msg_Text(int id);

// True when the table holds the id.
bool msg_Has(int id);

// The text of an id whose text is a format with one whole-number field (a
// line number): "Line %ld ..." filled in.
std::string msg_Format(int id, long value);
