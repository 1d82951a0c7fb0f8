// Which reports were opened in this browser, so that the others stand out.

const key = 'wexel-opened-reports';
const most = 2000;

function stored() {
    try {
        const ids = JSON.parse(localStorage.getItem(key));
        return Array.isArray(ids) ? ids : [];
    } catch {
        return []; // no storage in this browser, or not ours
    }
}

const opened = new Set(stored());

export function wasOpened(id) {
    return opened.has(id);
}

export function markOpened(id) {
    for (const each of stored())
        opened.add(each); // by other tabs
    opened.delete(id);
    opened.add(id);
    try {
        localStorage.setItem(key, JSON.stringify([...opened].slice(-most)));
    } catch {
        // then only until the page is closed
    }
}
