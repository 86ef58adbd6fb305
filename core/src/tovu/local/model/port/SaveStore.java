package tovu.local.model.port;

import java.io.Closeable;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;

/** Where the saves of one federation are, by label. */
public interface SaveStore {
    /** A save on its way into the store. Nobody sees anything of it before it is published. */
    interface Draft extends Closeable {
        /** Takes the content, piece by piece. */
        OutputStream content();

        /** The content is whole: makes it as lasting as the store is, which may take long. */
        void complete() throws IOException;

        /** Makes it the save of its label, in the place of one that was there. Takes no longer than naming a file. */
        void publish() throws IOException;

        /** Discards what is not published. */
        @Override
        void close();
    }

    /**
     * A save in the store.
     *
     * @param content what was written
     * @param length  the number of its bytes, or a few more
     */
    record Found(InputStream content, long length) implements Closeable {
        @Override
        public void close() throws IOException {
            content.close();
        }
    }

    /** Whether nobody minds to wait for it with a federation's lock held. */
    boolean isQuick();

    Draft draft(String label) throws IOException;

    /**
     * @return the save of that label, or null when there is none
     * @throws IOException when it is damaged or none that can be read; the message says so
     */
    Found find(String label) throws IOException;

    /** What a failure says; of some only the class does. */
    static String reason(Throwable failure) {
        return failure.getClass() == IOException.class ? failure.getMessage() : failure.toString();
    }
}
