/// The list as it was last shown: for the way back from a report, and for the report's neighbours.
export const lastShown = {parameters: '', reports: [], scroll: 0, focused: null};
