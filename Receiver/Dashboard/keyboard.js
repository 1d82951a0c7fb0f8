// Keys that work wherever the reader is not writing. A page sets its own; they go when the page is left.

const everywhere = new Map();
let ofPage = new Map();

export function resetKeys(keys = {}) {
    ofPage = new Map(Object.entries(keys));
}

/// For the life of the program.
export function alwaysKeys(keys) {
    for (const [key, action] of Object.entries(keys))
        everywhere.set(key, action);
}

function isWriting(target) {
    return target instanceof HTMLElement
        && (target.isContentEditable || /^(INPUT|TEXTAREA|SELECT)$/.test(target.tagName));
}

document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || event.defaultPrevented || isWriting(event.target))
        return;
    if (document.querySelector('dialog[open]'))
        return; // a dialog has keys of its own
    const action = ofPage.get(event.key) ?? everywhere.get(event.key);
    if (action && action(event) !== false)
        event.preventDefault();
});
