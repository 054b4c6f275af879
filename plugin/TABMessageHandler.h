#pragma once

#include <QtGlobal>

class QMessageLogContext;
class QString;

/// Discards every Qt message. The first plugin widget installs it for the whole host process and
/// nothing removes it: production viewers keep their console clean that way.
void TABMessageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message);
