// The few pictures beside words, drawn on a grid of 16.

const shapes = {
    inbox: 'M2 9.5 3.5 3h9L14 9.500V13H2zM2 9.500h3.500c0 1.5 1 2.5 2.5 2.500s2.5-1 2.5-2.500H14',
    apps: 'M2.5 2.500h4.500v4.500H2.500zM9 2.500h4.500v4.500H9zM2.5 9h4.500v4.500H2.500zM9 9h4.500v4.500H9z',
    key: 'M9.5 6.500a3.5 3.5 0 1 0-2.600 3.400L8.5 11.500H10V13h1.500v1.500H14V12L9.400 7.600a3.5 3.5 0 0 0 .1-1.100zM5 5.500h.01',
    person: 'M8 8a3 3 0 1 0 0-6 3 3 0 0 0 0 6zM2.5 14c.5-3 2.600-4.5 5.5-4.500s5 1.5 5.5 4.5',
    search: 'M7 12A5 5 0 1 0 7 2a5 5 0 0 0 0 10zM10.700 10.700 14 14',
    back: 'M9.5 3 4.5 8l5 5',
    next: 'M6.5 3l5 5-5 5',
    download: 'M8 2v8M4.5 6.800 8 10.300l3.5-3.500M2.5 13.500h11',
    trash: 'M2.5 4.500h11M6 4.500V2.500h4v2M4 4.500l.6 9h6.800l.6-9M6.700 7v4M9.300 7v4',
    zoom: 'M7 12A5 5 0 1 0 7 2a5 5 0 0 0 0 10zM10.700 10.700 14 14M7 5v4M5 7h4',
    copy: 'M5.5 5.500h8v8h-8zM10.5 5.500v-3h-8v8h3',
    clip: 'M13 7.5 8 12.500a3 3 0 0 1-4.300-4.300l5.5-5.500a2 2 0 0 1 2.900 2.900L6.700 11a1 1 0 0 1-1.5-1.500L10 4.800',
    close: 'M3.5 3.500l9 9M12.5 3.500l-9 9',
    filter: 'M2 4h12M4.5 8h7M7 12h2',
    warning: 'M8 2 14.5 13.500h-13zM8 6.500V10M8 11.800v.2',
    plus: 'M8 3v10M3 8h10',
    help: 'M5.5 5.800C5.5 4.300 6.600 3.300 8 3.300s2.5 1 2.5 2.300c0 1.800-2.5 2-2.5 4M8 12.300v.2',
    external: 'M9.5 2.500h4v4M13.5 2.5 7.5 8.500M11.5 9v4.500h-9v-9H7',
};

export function icon(name) {
    const namespace = 'http://www.w3.org/2000/svg';
    const svg = document.createElementNS(namespace, 'svg');
    const path = document.createElementNS(namespace, 'path');
    svg.setAttribute('viewBox', '0 0 16 16');
    svg.setAttribute('class', 'icon');
    svg.setAttribute('aria-hidden', 'true');
    path.setAttribute('d', shapes[name]);
    svg.append(path);
    return svg;
}
