// Where the reader is: "#/reports/12?search=cart" is the page "reports", the id "12" and parameters. Back and forward work
// because the address's fragment is the only place that knows.

const listeners = new Set();

export function current() {
    const [path, query = ''] = location.hash.replace(/^#\/?/, '').split('?', 2);
    const [page, id] = path.split('/');
    return {page: page || 'reports', id: id === undefined ? null : decode(id), parameters: new URLSearchParams(query)};
}

export function address(page, id = null, parameters = new URLSearchParams()) {
    const query = parameters.toString();
    return `#/${page}${id === null ? '' : '/' + encodeURIComponent(id)}${query ? '?' + query : ''}`;
}

export function go(target) {
    location.hash = target;
}

/// Changes the address without a step in the history, for filters that change with every letter.
export function replace(target) {
    history.replaceState(history.state, '', target);
    notify();
}

/// Called with every change of the address.
export function onRoute(listener) {
    listeners.add(listener);
}

function notify() {
    for (const listener of listeners)
        listener(current());
}

function decode(text) {
    try {
        return decodeURIComponent(text);
    } catch {
        return text;
    }
}

addEventListener('hashchange', notify);
