// Shared by the fuzz targets.
#pragma once

#include <QtCore/QByteArray>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Ends the process with the message \a what if \a condition is false.
void require(bool condition, const char *what, const QByteArray &details = QByteArray());

/// Discards the messages of Qt, except a fatal one, which ends the process.
void silenceMessages();
