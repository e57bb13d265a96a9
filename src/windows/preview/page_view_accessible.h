#pragma once

namespace lorvan {

class PageView;

/// Lets assistive tools read the text of the page that a PageView shows. Once in a process is enough.
void installPageReading();

/// Tells them that another page is shown. Costs nothing while there are none.
void tellPageTurned(PageView& view);

} // namespace lorvan
