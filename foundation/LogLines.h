#pragma once

#include <QtDebug>

/// Streams that write one line to the message log when they go, without file, line or function.
///
/// Texts given as QString stand in double quotes with inner quotes escaped, plain character data as
/// it is, items separated by single blanks. Any thread.
namespace LogLines {

QDebug info();
QDebug warning();
QDebug critical();

}
