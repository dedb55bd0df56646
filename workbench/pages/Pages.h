#pragma once

/// The pages of the workbench, "qrc:/status.html" and so on.
namespace Pages {

/// Makes them known to the resource system; again without harm.
void registerResources();

}
