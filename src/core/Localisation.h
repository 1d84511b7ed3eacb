#pragma once

class QCoreApplication;

namespace Localisation {
// Loads the compiled id-based translation tables so qtTrId() answers with English texts.
void install(QCoreApplication *app);
} // namespace Localisation
