#pragma once

namespace lorvan {

class PageView;

/// Lets assistive technology read the text of the page shown by a PageView. To be called once per process.
void installPageReading();

/// Tells it that another page is shown. Costs nothing if there is none.
void tellPageTurned(PageView& view);

} // namespace lorvan
