#include "framework/Messages.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace {

struct Entry {
    int id;
    const char* text;
};

// Sorted by id; msg_Text looks entries up by binary search.
const Entry kTable[] = {
    {15803, "Source file is not specified"},
    {15804, "Invalid replication treatment"},
    {15806, "Files don't contain the same type of data"},
    {15807, "Non-reinitialized systems requires lumped\ntreatment for APPEND option"},
    {15808, "Reinitialized systems requires a non-lumped\ntreatment for the APPEND option"},
    {15809, "Maximum Lags must be greater than 0"},
    {15810, "File contains time-persistent data.\n You must first Batch/Truncate the data."},
    {15811, "File not found"},
    {15813, "Confidence level value must be >= 0 and <= 100"},
    {15814, "No files were specified"},
    {15816, "Window too small to graph"},
    {15817, "Invalid beginning time.\nMust be non-negative numeric quantity."},
    {15818, "Invalid ending time.\nMust be non-negative numeric quantity."},
    {15819, "Invalid minimum value.\nMust be numeric quantity."},
    {15820, "Invalid maximum value.\nMust be numeric quantity."},
    {15821, "Invalid data file.\n\nPossible causes:\n    Not an Molvex/ZEMIQ-generated data file;\n    Empty file caused by abnormal exit of Molvex/ZEMIQ."},
    {15829, "Ending value must be larger than beginning value"},
    {15830, "Ending time must be greater than beginning time"},
    {15831, "The data file does not contain enough data points.\nDecrease the maximum number of lags."},
    {15832, "Error opening data file.\n\nPossible causes:\n   Write-protected file opened for writing\n   File not found\n   Disk/network drive not accessible\n  Too many files open."},
    {15833, "Error writing to data file.\n\nPossible causes:\n   Write-protected file\n   File not found\n   Disk/network drive not accessible."},
    {15834, "Error reading from data file.\n\nPossible causes:\n   File not found\n   Disk/network drive not accessible."},
    {15836, "End of file reached.\n\nMay have been caused by abnormal exit\nfrom simulation run (e.g., breaking from application)."},
    {15839, "Value"},
    {15840, "Time"},
    {15841, "No item is selected."},
    {15842, "Remove selected file from data group?"},
    {15843, "Remove file from data group"},
    {15852, "Correlogram Summary"},
    {15853, "Sample Mean"},
    {15854, "Sample Variance"},
    {15855, "Sample Size"},
    {15856, "Weighted Sum of Cov."},
    {15857, "Correlation/Covariance Values"},
    {15858, "Lag"},
    {15859, "Covariance"},
    {15860, "Correlation"},
    {15861, "Initial Time Truncated"},
    {15862, "Initial Observations Truncated"},
    {15863, "Number of Batches"},
    {15864, "Time Spanned Per Batch"},
    {15865, "Number of Observations Per Batch"},
    {15866, "Trailing Time Truncated"},
    {15867, "Number of Trailing Obs'ns Truncated"},
    {15868, "Estimate of Covariance Between Batches"},
    {15869, "Covariance equal to 0 rejected in favor of Covariance > 0 at 0.05 level."},
    {15870, "Covariance equal to 0 rejected in favor of Covariance not equal to 0 at 0.05 level."},
    {15871, "Batch/Truncate Summary"},
    {15872, "Batched observations stored in file"},
    {15873, "Export Summary"},
    {15874, "Destination File"},
    {15875, "Replications"},
    {15876, "Observations"},
    {15877, "Records"},
    {15878, "Import Summary"},
    {15879, "Data Kind"},
    {15880, "Precision"},
    {15881, "Load ASCII Summary"},
    {15882, "Lines Read"},
    {15884, "DIF File Summary"},
    {15885, "Source File"},
    {15886, "Append Summary"},
    {15887, "Replications Before"},
    {15888, "Replications After"},
    {15889, "Records Appended"},
    {15890, "Line %ld is not a time and a value."},
    {15891, "Line %ld has a decimal comma.\nWrite numbers with a decimal point."},
    {15892, "Line %ld has a negative time.\nTimes must be 0 or more."},
    {15893, "Line %ld of the export file header is invalid."},
    {15894, "The text file holds no observations."},
    {15895, "Data kind must be a whole number from 1 to 7."},
    {15896, "Destination file is not specified"},
    {15897, "The export file ends early, at line %ld.\nIt may have been cut short."},
    {15899, "Classical C.I. Intervals Summary"},
    {15900, "Invalid value range.\nMinimum value must be less than maximum."},
    {15901, "No observations stored in data file."},
    {15905, "File already is in the data group."},
    {15906, "Error calculating standard deviation interval."},
    {15907, "Error calculating confidence interval."},
    {15912, "Simulation Output (*.dat)|*.dat|All Files (*.*)|*.*||"},
    {15914, "*.dat"},
    {15917, "Confidence Interval on Standard Deviation"},
    {15918, "Standardized Time Series Conf. Interval on Mean"},
    {15919, "IDENTIFIER              AVERAGE   STANDARD   %5.3f C.I.    MINIMUM    MAXIMUM  NUMBER\n"},
    {15920, "                                 DEVIATION   HALF-WIDTH      VALUE      VALUE  OF OBS.\n"},
    {15921, "IDENTIFIER              AVERAGE   SQRT(A/N)  %5.3f C.I.    MINIMUM    MAXIMUM  NUMBER\n"},
    {15922, "                                             HALF-WIDTH      VALUE      VALUE  OF OBS.\n"},
    {15923, "IDENTIFIER         EST.STANDARD   LOWER %5.3f   UPPER %5.3f      RANGE    NUMBER\n"},
    {15924, "                      DEVIATION     C.I.LIMIT     C.I.LIMIT     OF OBS    OF OBS\n"},
    {15925, "Invalid output file specified.  Output file can't be the same as the input file."},
    {15926, "All files do not contain the same type of data"},
    {15927, "Invalid numeric field"},
    {15928, "Invalid data file header.\nLikely cause: file is not a Molvex/ZEMIQ output file."},
    {15930, "Denominator of zero detected"},
    {15931, "No observations found"},
    {15932, "Lumped data not allowed"},
    {15934, "Buffer size exceeded"},
    {15937, "Simulation Output (*.dat)|*.dat|Batch/Truncate Files (*.flt)|*.flt|All Files (*.*)|*.*||"},
    {15940, "The input file does not contain enough replications to support the specified replication treatment number"},
    {15944, "Too much text to fit into the text window.\nTruncating data."},
    {15945, "Internal error opening temporary file for text data."},
    {15951, "Standard Deviation Intervals"},
    {15952, "Observation Intervals"},
    {15953, "Standardized Time Series Intervals"},
    {15954, "Min"},
    {15955, "Max"},
    {15956, "Avg"},
    {15957, "Paired-t Comparison of Means"},
    {15958, "Two-sample-t Comparison of Means"},
    {15959, "Diff"},
    {15976, "Comparison of Variances"},
    {15977, "         Paired-T Means Comparison : %20s\n\n"},
    {15978, "       Two-Sample T Means Comparison : %20s\n\n"},
    {15979, "      IDENTIFIER         ESTD. MEAN   STANDARD  %5.3f C.I.    MINIMUM    MAXIMUM  NUMBER\n"},
    {15980, "                         DIFFERENCE  DEVIATION  HALF-WIDTH      VALUE      VALUE  OF OBS\n"},
    {15981, "---------------------------------------------------------------------------------------\n"},
    {15982, "%-20.20s     %10.3g %10.3g  %10.3g %10.3g %10.3g %7ld\n"},
    {15983, "                                                           %10.3g %10.3g %7ld\n"},
    {15984, "         FAIL TO REJECT  H0 => MEANS ARE EQUAL  AT %5.3g LEVEL\n\n"},
    {15985, "         REJECT H0 => MEANS ARE NOT EQUAL  AT %5.3g LEVEL\n"},
    {15997, "                       Compare Variances : %s\n\n"},
    {15998, "-------------------------------------------------------------------------------------\n"},
    {15999, "      IDENTIFIER       VARIANCE  UPPER %5.3f LOWER %5.3f   MINIMUM    MAXIMUM NUMBER\n"},
    {16000, "                          RATIO    C.I.LIMIT   C.I.LIMIT     VALUE      VALUE OF OBS\n"},
    {16001, "%-20.20s %10.3g %10.3g%%  %10.3g %10.3g %10.3g %6ld\n"},
    {16002, "                                                        %10.3g %10.3g %6ld\n"},
    {16003, "          FAIL TO REJECT H0 => VARIANCES ARE EQUAL AT %5.3g LEVEL\n\n"},
    {16004, "          REJECT H0 => VARIANCES ARE NOT EQUAL AT %5.3g LEVEL\n\n"},
    {16005, "An analysis of variance needs at least two files"},
    {16006, "With unequal variances each file needs\nat least two observations"},
    {16007, "Too few observations: there must be more observations than files"},
    {16008, "The observations within each file are all equal.\nThe F ratio is undefined."},
    {16009, "A file whose observations are all equal\ncannot be compared with unequal variances"},
    {16010, "One-Way ANOVA Summary"},
    {16011, "Means and Confidence Intervals"},
    {16016, "Plot Legend ~ Filename (Replication Treatment)"},
    {16017, "lumped"},
    {16018, "all"},
    {16019, "Plot - "},
    {16020, "Compare Means - "},
    {16021, "Classical C.I. On Mean - "},
    {16022, "One-Way ANOVA - "},
    {16023, "Standard Deviation Intervals - "},
    {16024, "Standardized Time Series Intervals - "},
    {16025, "Tables - "},
    {16026, "Compare Variances - "},
    {16027, "Append - "},
    {16028, "DIF File - "},
    {16029, "Export - "},
    {16030, "Batch/Truncate - "},
    {16031, "Barchart - "},
    {16032, "Correlogram - "},
    {16033, "Histogram - "},
    {16034, "Import File - "},
    {16035, "ASCII Load File - "},
    {16036, "Moving Average - "},
    {16037, "Standard Deviation Intervals Summary"},
    {16038, "Standardized Time Series Intervals Summary"},
    {16041, "%-20.20s                                       %10.3g %10.3g %7ld\n"},
    {16042, "%-20.20s                                    %10.3g %10.3g %6ld\n"},
    {16043, "Ratio"},
    {16050, ", <error accessing file>"},
    {16064, "Batch/Truncate Files (*.flt)|*.flt|All Files (*.*)|*.*||"},
    {16065, "Batch/Truncate File"},
    {16069, "Lag Number"},
    {16070, "Correlation"},
    {16071, "Auto Corr. Files (*.cor)|*.cor|All Files (*.*)|*.*||"},
    {16072, "Autocorrelation File"},
    {16380, "\nOutput\nOutput Processor Window\nOutput Processor Files (*.dgr)\n.dgr\nMolvexOutput.Document\nMolvex Output Processor Document"},
    {16381, "\nBarchart\n\n\n\n\n"},
    {16382, "\nComparison\n\n\n\n\n"},
    {16383, "\nCorrelogram\n\n\n\n\n"},
    {16384, "\nHistogram\n\n\n\n\n"},
    {16385, "\nIntervals\n\n\n\n\n"},
    {16386, "\nMovingAverage\n\n\n\n\n"},
    {16387, "\nOnewayVariance\n\n\n\n\n"},
    {16388, "\nPlot\n\n\n\n\n"},
    {16389, "\nSdIntervals\n\n\n\n\n"},
    {16390, "\nVartest\n\n\n\n\n"},
    {16392, "\nExport\n\n\n\n\n"},
    {16393, "\nAppend\n\n\n\n\n"},
    {16394, "\nDiffile\n\n\n\n\n"},
    {16395, "\nBatchTruncate\n\n\n\n\n"},
    {16396, "\nImport\n\n\n\n\n"},
    {16397, "\nLoad\n\n\n\n\n"},
    {16398, "\nTable\n\n\n\n\n"},
    {16399, "\nStdInterval\n\n\n\n\n"},
    {61697, "Failed to open document."},
    {61698, "Failed to save document."},
    {61699, "Unexpected file format."},
    {61700, "Please enter a number between 0 and 999999."},
};

const Entry* Find(int id) {
    auto it = std::lower_bound(std::begin(kTable), std::end(kTable), id,
                               [](const Entry& e, int key) { return e.id < key; });
    return (it != std::end(kTable) && it->id == id) ? it : nullptr;
}

}  // namespace

const std::string& msg_Text(int id) {
    // Strings are built once so callers can hold references for the process's life.
    static const auto texts = [] {
        std::array<std::string, std::size(kTable)> all;
        for (std::size_t i = 0; i < std::size(kTable); ++i) all[i] = kTable[i].text;
        return all;
    }();
    static const std::string empty;
    const Entry* e = Find(id);
    return e ? texts[static_cast<std::size_t>(e - kTable)] : empty;
}

bool msg_Has(int id) { return Find(id) != nullptr; }

std::string msg_Format(int id, long value) {
    const std::string& format = msg_Text(id);
    const int n = std::snprintf(nullptr, 0, format.c_str(), value);
    if (n < 0) return format;
    std::string text(static_cast<std::size_t>(n), '\0');
    std::snprintf(text.data(), text.size() + 1, format.c_str(), value);
    return text;
}
