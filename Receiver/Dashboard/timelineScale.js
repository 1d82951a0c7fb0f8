// Times and places on the time line.

const second = 1000;
const minute = 60 * second;
const hour = 60 * minute;
const steps = [0.1, 0.2, 0.5, 1, 2, 5, 10, 15, 30].map((count) => count * second)
    .concat([1, 2, 5, 10, 15, 30].map((count) => count * minute))
    .concat([1, 2, 3, 6, 12, 24, 48, 168, 720, 8760, 87600].map((count) => count * hour));

/// Ticks at round distances before the report, about one in `room` pixels.
export function ticks({from, to, end}, width, room = 90) {
    const most = Math.max(2, Math.floor(width / room));
    const step = steps.find((each) => (to - from) / each <= most) ?? (to - from) / most;
    const first = end - Math.floor((end - from) / step) * step;
    const result = [];
    for (let time = first; time <= to && result.length <= most + 1; time += step)
        result.push({time, text: tickText(time - end)});
    return result;
}

function tickText(offset) {
    const distance = Math.abs(offset);
    const sign = offset < 0 ? '−' : '+';
    if (distance < 1)
        return 'report';
    if (distance < minute)
        return `${sign}${Number((distance / second).toFixed(1))} s`;
    if (distance < hour)
        return `${sign}${Number((distance / minute).toFixed(1))} min`;
    return distance < 48 * hour ? `${sign}${Number((distance / hour).toFixed(1))} h` : `${sign}${Math.round(distance / hour / 24)} d`;
}

/// 0 to 1 inside the span.
export function share(time, {from, to}) {
    return (time - from) / (to - from);
}

export function timeAt(part, {from, to}) {
    return from + Math.min(1, Math.max(0, part)) * (to - from);
}

/// Places an element over a piece of the span; hides it outside.
export function placeOver(element, from, to, span) {
    const left = Math.max(0, share(from, span));
    const right = Math.min(1, share(to, span));
    element.hidden = right < 0 || left > 1 || right < left;
    element.style.left = `${left * 100}%`;
    element.style.width = `${Math.max(0, right - left) * 100}%`;
}
