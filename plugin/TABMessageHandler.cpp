#include "plugin/TABMessageHandler.h"

void TABMessageHandler(QtMsgType, const QMessageLogContext&, const QString&) {}
