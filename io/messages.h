// SPDX-License-Identifier: MIT
// Messages of files and of the CSV reader. Those of the reader are code page 936 bytes, written so
// that every compiler stores the same, each with its text and meaning.
#ifndef QUARNFC_IO_MESSAGES_H_
#define QUARNFC_IO_MESSAGES_H_

namespace quarnfc::io {

// The path; the system's error.
constexpr char kCannotSave[] = "Quarn: Can't save %s, error: 0x%X";

// "打开 %s 失败，错误码: %d": opening %s failed, error code: %d. The path; the last error.
constexpr char kCsvOpenFailed[] =
    "\xB4\xF2\xBF\xAA %s \xCA\xA7\xB0\xDC\xA3\xAC\xB4\xED\xCE\xF3\xC2\xEB: %d";

// "读取 %s 失败，错误码: %d": reading %s failed, error code: %d. The path; the system's error.
constexpr char kCsvReadFailed[] =
    "\xB6\xC1\xC8\xA1 %s \xCA\xA7\xB0\xDC\xA3\xAC\xB4\xED\xCE\xF3\xC2\xEB: %d";

// "未打开文件!": no file opened!
constexpr char kCsvNotOpen[] = "\xCE\xB4\xB4\xF2\xBF\xAA\xCE\xC4\xBC\xFE!";

// "CSV数据为空或格式无效!": the CSV data is empty or its format is invalid!
constexpr char kCsvNoHeader[] =
    "CSV\xCA\xFD\xBE\xDD\xCE\xAA\xBF\xD5\xBB\xF2\xB8\xF1\xCA\xBD\xCE\xDE\xD0\xA7!";

// "文件中数据的行长度超过缓存长度(%d字节)，处理失败!": a line in the file is longer than the buffer
// (%d bytes), processing failed! The size of the buffer.
constexpr char kCsvLineTooLong[] =
    "\xCE\xC4\xBC\xFE\xD6\xD0\xCA\xFD\xBE\xDD\xB5\xC4\xD0\xD0\xB3\xA4\xB6\xC8\xB3\xAC\xB9\xFD\xBB"
    "\xBA\xB4\xE6\xB3\xA4\xB6\xC8(%d\xD7\xD6\xBD\xDA)\xA3\xAC\xB4\xA6\xC0\xED\xCA\xA7\xB0\xDC!";

}  // namespace quarnfc::io

#endif  // QUARNFC_IO_MESSAGES_H_
