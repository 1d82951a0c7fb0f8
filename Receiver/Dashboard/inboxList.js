// The rows of one page of the inbox: changed in place, so that neither the focus nor the place in the list is lost.

import {el} from './dom.js';
import {buildRow} from './inboxRow.js';

/// {element, show(reports, parameters, newFrom), move(step), focusFirst(), focus(id), focused()}
export function buildList() {
    const element = el('ol.rows');
    const items = new Map(); // by report id: {item, state}

    /// `newFrom`: what has a larger id has just arrived.
    function show(reports, parameters, newFrom = Infinity) {
        const wanted = new Set(reports.map((report) => report.id));
        for (const [id, {item}] of items) {
            if (!wanted.has(id)) {
                item.remove();
                items.delete(id);
            }
        }
        let before = null;
        for (const report of reports) {
            const item = itemFor(report, parameters, report.id > newFrom);
            if (item.previousElementSibling !== before || item.parentElement !== element)
                before ? before.after(item) : element.prepend(item);
            before = item;
        }
    }

    function itemFor(report, parameters, isNew) {
        const state = JSON.stringify(report) + parameters;
        const known = items.get(report.id);
        if (known?.state === state)
            return known.item;
        const item = buildRow(report, parameters);
        item.firstChild.classList.toggle('is-new', isNew);
        known?.item.replaceWith(item);
        items.set(report.id, {item, state});
        return item;
    }

    function focused() {
        return document.activeElement?.closest?.('.rows .row') ?? null;
    }

    function move(step) {
        const rows = [...element.querySelectorAll('.row')];
        const at = rows.indexOf(focused());
        const next = rows[at < 0 ? 0 : Math.min(rows.length - 1, Math.max(0, at + step))];
        next?.focus();
        next?.scrollIntoView({block: 'nearest'});
    }

    return {
        element,
        show,
        move,
        focusFirst: () => element.querySelector('.row')?.focus(),
        focused: () => Number(focused()?.dataset.id) || null,
        focus: (id) => items.get(id)?.item.firstChild.focus({preventScroll: true}),
    };
}
