// Pointer and keys on the time line: moving shows a moment, dragging chooses a span.

import {el} from './dom.js';
import {share, timeAt} from './timelineScale.js';

const shortestDrag = 6; // pixels
const shortestSpan = 200; // milliseconds

/// {layer, place(time)}; `show(time or null)` and `zoom(from, to)` are told. `span()` is what is shown;
/// `moments` are the times, in order, where something happened.
export function buildCursor({area, span, moments, show, zoom, isZoomed, reset, signal}) {
    const hair = el('span.hair', {hidden: true});
    const selection = el('span.selection', {hidden: true});
    const layer = el('.overlay', hair, selection);
    let shown = null; // time under the hair
    let start = null; // of a drag, as a share

    function place(time) {
        shown = time;
        const part = time === null ? -1 : share(time, span());
        hair.hidden = part < 0 || part > 1;
        hair.style.left = `${part * 100}%`;
        show(time);
    }

    const partAt = (event) => {
        const {left, width} = layer.getBoundingClientRect();
        return (event.clientX - left) / width;
    };

    area.addEventListener('pointermove', (event) => {
        const part = partAt(event);
        if (part >= 0 && part <= 1)
            place(timeAt(part, span()));
        if (start !== null)
            drawSelection(part);
    });
    area.addEventListener('pointerdown', (event) => {
        const part = partAt(event);
        if (part < 0 || part > 1)
            return;
        if (event.pointerType !== 'mouse')
            place(timeAt(part, span())); // a tap moves nothing and leaves at once
        else if (event.button === 0 && !event.target.closest('button'))
            start = part;
    });
    addEventListener('pointerup', finish, {signal});
    area.addEventListener('dblclick', reset);
    area.addEventListener('pointerleave', ({pointerType}) => pointerType === 'mouse' && start === null && place(null));
    area.addEventListener('keydown', (event) => {
        if (event.altKey || event.metaKey)
            return; // the browser's own: back and forward
        const {from, to} = span();
        const step = (to - from) / (event.shiftKey ? 20 : 120);
        const target = event.ctrlKey ? {ArrowLeft: momentBefore(shown ?? to), ArrowRight: momentAfter(shown ?? from)}[event.key]
            : {ArrowLeft: (shown ?? to) - step, ArrowRight: (shown ?? from) + step, Home: from, End: to}[event.key];
        if (target === undefined && !(event.key === 'Escape' && (shown !== null || isZoomed())))
            return;
        event.preventDefault();
        event.stopPropagation();
        if (event.key === 'Escape') {
            place(null);
            reset();
        } else {
            place(Math.min(to, Math.max(from, target)));
        }
    });

    const momentBefore = (time) => moments.findLast((each) => each < time) ?? time;
    const momentAfter = (time) => moments.find((each) => each > time) ?? time;

    function drawSelection(part) {
        const [left, right] = [Math.max(0, Math.min(start, part)), Math.min(1, Math.max(start, part))];
        selection.hidden = (right - left) * layer.clientWidth < shortestDrag;
        selection.style.left = `${left * 100}%`;
        selection.style.width = `${(right - left) * 100}%`;
    }

    function finish(event) {
        if (start !== null && !selection.hidden) {
            const part = partAt(event);
            const [from, to] = [Math.min(start, part), Math.max(start, part)].map((each) => timeAt(each, span()));
            if (to - from >= shortestSpan)
                zoom(from, to);
        }
        start = null;
        selection.hidden = true;
    }

    return {layer, place};
}
