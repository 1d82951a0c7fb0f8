// Elements from descriptions. Texts become text nodes, always: what a report says is never parsed as HTML.

const properties = new Set(['value', 'disabled', 'hidden', 'tabIndex', 'htmlFor', 'className', 'title', 'required']);

/// el('a.row.is-new', {href, onclick, dataset: {id}}, 'text', child, [more], null): a null child is left out.
export function el(description, attributes = {}, ...children) {
    if (isChild(attributes)) {
        children.unshift(attributes);
        attributes = {};
    }
    const [tag, ...classes] = description.split('.');
    const element = document.createElement(tag || 'div');
    if (classes.length)
        element.className = classes.join(' ');
    for (const [name, value] of Object.entries(attributes))
        set(element, name, value);
    element.append(...flat(children));
    return element;
}

/// Puts these in the place of all that was there.
export function fill(element, ...children) {
    element.replaceChildren(...flat(children));
    return element;
}

/// As `fill`, but the focus stays where it was in the table's row of the same key, or else on the page.
export function refill(element, ...children) {
    const row = element.contains(document.activeElement) && document.activeElement.closest('[data-key]');
    const at = row && buttonsOf(row).indexOf(document.activeElement);
    fill(element, ...children);
    if (!row)
        return;
    const same = [...element.querySelectorAll('[data-key]')].find(({dataset}) => dataset.key === row.dataset.key);
    (same && buttonsOf(same)[at] || element.closest('main')).focus({preventScroll: true});
}

/// "Size.number" is a column of the class "number".
export function tableHead(...names) {
    return el('thead', el('tr', names.map((name) => name.split('.')).map(([text, className = '']) => el('th', {scope: 'col', className}, text))));
}

/// In the place of what could not be got. `again()` asks for it once more. The same words stay as they are, for they are read out.
export function failed(element, error, again) {
    if (error.name === 'AbortError' || element.querySelector('.failed .problem')?.textContent === error.message)
        return;
    const retry = () => {
        element.closest('main').focus({preventScroll: true}); // the button goes
        fill(element);
        again();
    };
    fill(element, el('.failed', el('p.problem', {role: 'alert'}, error.message), el('button', {type: 'button', onclick: retry}, 'Try again')));
}

/// What the report's own words are shown in: they can't turn the text around them.
export function quoted(text) {
    return el('bdi', text);
}

function buttonsOf(row) {
    return [...row.querySelectorAll('button')];
}

function isChild(value) {
    return value === null || typeof value !== 'object' || value instanceof Node || Array.isArray(value);
}

function flat(children) {
    return children.flat(Infinity).filter((child) => child !== null && child !== undefined && child !== false);
}

function set(element, name, value) {
    if (value === null || value === undefined)
        return;
    if (name === 'dataset')
        Object.assign(element.dataset, value);
    else if (name.startsWith('on'))
        element.addEventListener(name.slice(2), value);
    else if (properties.has(name))
        element[name] = value;
    else if (value !== false)
        element.setAttribute(name, value === true ? '' : value);
}
