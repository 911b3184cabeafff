// Numbers shared by the resource script and the sources.
#pragma once

#define IDM_LISTER 100
#define IDA_LISTER 101
#define IDD_FIND 102

#define IDC_OPEN 201
#define IDC_NEXT_FILE 202
#define IDC_PREVIOUS_FILE 203
#define IDC_CLOSE 204
#define IDC_FIND 205
#define IDC_FIND_NEXT 206
#define IDC_FIND_PREVIOUS 207

#define IDC_FIND_TEXT 301
#define IDC_MATCH_CASE 302
#define IDC_WHOLE_WORDS 303
#define IDC_BACKWARDS 304
