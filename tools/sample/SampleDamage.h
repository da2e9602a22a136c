#pragma once

#include "platform/text/Text.h"

#include <QImage>

#include <functional>
#include <vector>

/// What is done to the files of a sample delivery behind its writer's back. Each throws
/// std::runtime_error when it can't be done, and where there is nothing to do it to.

std::string ReadSampleFile(const CString& path);

/// Replaces the first \p from, or all of them, in the XML file \p path, in its encoding.
void ReplaceInXml(const CString& path, std::string_view from, std::string_view to,
                  bool everywhere = false);

/// Replaces the text of the first element \p tag in the XML file \p path.
void SetInXml(const CString& path, std::string_view tag, std::string_view text);

/// Writes the XML file \p path anew in UTF-16.
void RecodeXml(const CString& path);

/// Writes another time, "CCYY:MM:DD hh:mm:ss", over those in the Exif data of the JPEG file \p
/// path, or over the first of them.
void SetExifTimes(const CString& path, std::string_view time, bool everywhere = true);

/// Writes other dimensions into the Exif data.
void SetExifSize(const CString& path, unsigned width, unsigned height);

/// Replaces a text in the Exif data by one that is as long.
void SetExifText(const CString& path, std::string_view from, std::string_view to);

/// Takes the Exif data out of the JPEG file \p path.
void RemoveExif(const CString& path);

/// Encodes the picture \p path anew as \p change leaves it, with its Exif data but for the
/// dimensions, which are those that it has now.
void ChangePicture(const CString& path, const std::function<QImage(const QImage&)>& change,
                   int quality = -1);

/// Encodes the picture anew with its longer side \p side pixels long, and with its Exif data.
void ResizePicture(const CString& path, int side);

/// Writes over the pixels' data in the middle of the file.
void ScrambleMiddle(const CString& path);
