// What a fuzzer, or a replay of what it found, calls.
#pragma once

#include <QtCore/QByteArray>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Ends the process with a message where something does not hold.
void require(bool condition, const char *what, const QByteArray &details = QByteArray());

/// Messages of the sections go nowhere; a fatal one is shown before the process ends.
void silenceMessages();
