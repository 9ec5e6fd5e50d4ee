// The data-file layer: simulation output data files (text header, then binary
// time/value records) and the text header of the export format. Functions return
// 0 or the string id of the message the caller shows; none throws.
#pragma once

#include <cstdio>
#include <string>

#include "datafile/FileGlobals.h"

// Opens a data file. Mode 2 is the binary .dat mode; 0, 1, 4 and 5 are text
// modes (4 and 5 always create); mode 3 opens nothing. *err: 0, 23 or 15832.
FILE* op_OpenDataFile(int* err, const char* path, int mode, bool mustExist);

int op_ReadFileHdr(FILE* f, bool exportStyle, int* kind, char* type, int* reinit, int* count, int* identLen,
                   int* titleLen, char* ident, std::string* title, int* hdrStatus, int* isDouble);
int op_WriteFileHdr(FILE* f, bool exportStyle, int kind, const char* type, int reinit, long count, long identLen,
                    long titleLen, const char* ident, const std::string& title);
int op_CheckFileHdr(const char* path, int* kind, int* reinit, int* count, std::string* title, int mode);
int op_GetFileKind(const char* path);
int op_GetFileReinit(const char* path);

// Reads one record; end of file and errors show in the stream's indicators.
void op_ReadPair(FILE* f, int isDouble, double* time, double* value);
// Writes one record in the precision the configuration asks for now.
int op_WritePair(FILE* f, const double* time, const double* value);
void op_ReadTextPair(const char* line, double* time, double* value);

int op_SeekRep(FILE* f, int isDouble, int rep, int* repFound, bool binary);
// Reads the next observation or marker under a treatment. Analyses read
// through CRecordReader (RecordReader.h), which keeps the same rules.
void op_ReadObs(FILE* f, int isDouble, int treatment, int kind, double* time, double* value);
int op_CountReps(const char* path);
void op_SeekLastRecord(FILE* f, bool isDouble);

int op_ParseNumber(const char* text, double* out);
void op_TrimRight(char* text);
bool op_IsAlpha(const char* text);
bool op_IsDigits(const char* text);
int op_ParseRepTreatment(const char* text);
void op_PickNonEmpty(std::string& target, const std::string& first, const std::string& second);

// Header fields as one record, for callers that want them together.
struct DataFileHeader {
    int kind = 0;
    char type[11] = {};
    int reinit = 0;
    int count = 1;
    int identLen = 0;
    int titleLen = 16;
    char ident[25] = {};
    std::string title;
    int hdrStatus = 0;
    int isDouble = 1;
};
int op_ReadFileHdr(FILE* f, bool exportStyle, DataFileHeader* hdr);
// Reads a binary header from bytes already in memory, as op_ReadFileHdr reads
// it from a stream; *used is the number of bytes it took.
int op_ParseFileHdr(const char* bytes, std::size_t size, DataFileHeader* hdr, std::size_t* used);
// Reads an export (text) header from bytes in memory, as op_ReadFileHdr reads
// it from a stream in export style.
int op_ParseExportHdr(const char* bytes, std::size_t size, DataFileHeader* hdr, std::size_t* used);
