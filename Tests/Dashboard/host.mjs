// A host application that links the real library, installed with credentials of its own.

import {spawn} from 'node:child_process';
import {cp, mkdir, readFile, writeFile} from 'node:fs/promises';
import {basename, dirname, join, relative} from 'node:path';
import {createInterface} from 'node:readline';

export const bundleId = 'org.wexel.dashboard';
export const isBuilt = Boolean(process.env.WEXEL_HOST);

/// Lays the host out in the folder as it is in the build tree, for the library finds its address beside itself.
export async function installHost(folder, receiverUrl, {id, secret}) {
    const {WEXEL_HOST: program, WEXEL_LIBRARY: library, WEXEL_BUNDLE: bundle} = process.env;
    const libraryFolder = join(folder, relative(dirname(dirname(program)), dirname(library)));
    for (const place of [join(folder, 'bin'), libraryFolder, join(folder, 'share/wexel')])
        await mkdir(place, {recursive: true});
    await cp(program, join(folder, 'bin', basename(program)));
    await cp(library, join(libraryFolder, basename(library)), {dereference: true});
    await writeFile(join(folder, 'bin/Info.plist'), `<plist version="1.0"><dict>
        <key>CFBundleIdentifier</key><string>${bundleId}</string><key>CFBundleShortVersionString</key><string>2.5</string>
        <key>Wexel</key><dict><key>APIClientID</key><string>${id}</string>
        <key>APIClientSecret</key><string>${secret}</string></dict></dict></plist>`);
    const list = await readFile(bundle, 'utf8');
    await writeFile(join(folder, 'share/wexel/Info.plist'),
        list.replace(/(<key>WEXEL_API_URL<\/key>\s*<string>)[^<]*/, `$1${receiverUrl}`));
    return join(folder, 'bin', basename(program));
}

/// Runs it until it ends, for a minute at most; rejects with what it printed unless it ended well.
export function runHost(program, folder, ...commands) {
    const environment = {...process.env, HOME: join(folder, 'home'), XDG_DATA_HOME: join(folder, 'home/data'),
        XDG_CONFIG_HOME: join(folder, 'home/config'), QT_QPA_PLATFORM: 'offscreen', QT_FORCE_STDERR_LOGGING: '1'};
    const host = spawn(program, commands, {env: environment, stdio: ['ignore', 'pipe', 'pipe'], timeout: 60000});
    const lines = [];
    for (const input of [host.stdout, host.stderr])
        createInterface({input}).on('line', (line) => lines.push(line));
    return new Promise((resolve, reject) =>
        host.once('close', (code, signal) => code === 0 ? resolve(lines) : reject(new Error(`the host ended with ${code ?? signal}:\n${lines.join('\n')}`))));
}
